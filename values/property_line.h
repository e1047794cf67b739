// A property's line in the menu, as the values see it.
#pragma once

#include "base/wide_string.h"

namespace values {

class PropertyDescriptor;

class PropertyLine {
 public:
  virtual ~PropertyLine() = default;
  virtual PropertyDescriptor* Descriptor() const = 0;  // null: the line is no property
  virtual void SetLineText(WideString text) = 0;       // the whole text, name and value
};

}  // namespace values
