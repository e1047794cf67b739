// From what a settings file gives to what a person at the menus would enter for it.
#pragma once

#include "model/menu_item.h"
#include "settings/given_value.h"
#include "ui/property_editors.h"
#include "values/property_line_text.h"

#include <optional>
#include <string>

namespace settings {

struct EnteredValue {
  WideString text;
  values::EntryMode mode = values::EntryMode::kTyped;
  values::PropertyValue value;  // that it comes to
};

struct Reading {
  std::optional<EnteredValue> entered;
  std::string refusal;  // why nobody could enter it; says no secret
};

// By the property as it is now: its choices may be narrowed, its type another. kSecret has its secret as `text`.
Reading ReadAsEntered(const values::PropertyDescriptor& property, const ui::EditorTable& editors,
                      const GivenValue& given);

// Enter on its line edits it: there is an editor for it, and it is neither a menu nor a command. Whether rules lock the
// line now is another matter.
bool CanBeEdited(const model::MenuItem& item, const ui::EditorTable& editors);

// The device has this already: the value, whether anybody could enter it or not, or the key that it would be sent as.
bool IsPresent(const values::PropertyDescriptor& property, const GivenValue& given, const Reading& reading);

}  // namespace settings
