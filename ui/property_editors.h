// The editors prepare what the edit dialog shows of a property. There is one for each editable type; they are made once
// and used again for every edit.
#pragma once

#include "base/wide_string.h"
#include "ui/edit_request.h"
#include "values/choice_format.h"
#include "values/property_descriptor.h"

#include <map>
#include <memory>
#include <vector>

namespace ui {

class PropertyEditor {
 public:
  virtual ~PropertyEditor() = default;

  // Of the property prepared last.
  const std::vector<WideString>& ChoiceTexts() const { return choiceTexts_; }

  // A value that is not set or not among the choices leaves what belongs to it in the request as it was. Without a
  // descriptor nothing happens.
  void Prepare(const values::PropertyDescriptor* descriptor, EditRequest& request);

 protected:
  virtual void PrepareFor(const values::PropertyDescriptor& descriptor, EditRequest& request) = 0;

  void RefillChoiceTexts(const values::ChoiceFormat& choices);

 private:
  std::vector<WideString> choiceTexts_;
};

class EditorTable {
 public:
  EditorTable();

  // By exact type text; null when the type has no editor.
  PropertyEditor* Find(WideStringView type) const;

  // The whole request for a property: what every property has, and what its editor adds.
  EditRequest MakeRequest(const values::PropertyDescriptor& descriptor) const;

 private:
  std::map<WideString, std::shared_ptr<PropertyEditor>, std::less<>> editors_;
};

}  // namespace ui
