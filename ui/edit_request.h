// What the edit dialog is asked to show: made from a property by its editor.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <vector>

namespace ui {

struct EditRequest {
  WideString editorType;  // selects the control, without regard to case
  WideString subType;
  WideString value;     // the property's current value; the date and time controls start with it
  bool masked = false;  // typed characters are shown as stars

  // What follows is filled by the editor.
  WideString title;
  std::vector<WideString> choices;
  int selected = -1;         // index of the current choice, -1: none
  WideString mask;           // a "#" for each digit or character, or another mask
  WideString text;           // what an entry field starts with
  int maxChars = 0;          // 0: no limit
  std::uint32_t number = 0;  // of a flag nonzero for TRUE; of an address its first field in the top byte
};

}  // namespace ui
