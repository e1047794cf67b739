// What the edit dialog is asked to show: made from a property by its editor.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ui {

struct EditRequest {
  WideString editorType;  // selects the control, without regard to case
  WideString subType;
  WideString value;     // the property's current value; the date and time controls start with it
  bool masked = false;  // typed characters are shown as stars

  // What follows is filled by the editor.
  WideString title;  // "Change '...' Setting"; the dialog itself is titled with the display name alone
  std::vector<WideString> choices;
  int selected = -1;  // index of the current choice, -1: none
  WideString mask;    // a "#" for each digit or character, or another mask
  WideString text;    // what an entry field starts with
  int maxChars = 0;   // 0: no limit
  // Of a flag nonzero for TRUE; of an address its first field in the top byte, nothing for a value that is none.
  std::optional<std::uint32_t> number;
};

}  // namespace ui
