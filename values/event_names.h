// The events to be signalled after the next apply.
#pragma once

#include "base/wide_string.h"

#include <vector>

namespace values {

// Each name once, in the order of their first edit.
class EventNames {
 public:
  void Add(WideStringView name);  // an empty name is none
  void Clear() { names_.clear(); }
  const std::vector<WideString>& Names() const { return names_; }

 private:
  std::vector<WideString> names_;
};

}  // namespace values
