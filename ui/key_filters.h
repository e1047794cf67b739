// What may be typed into an entry field, character by character, and the overwriting of what stands there.
//
// Each filter is asked before the field handles the character and answers whether the character is swallowed. Where
// typing overwrites, the filter selects the character after the caret, so that the field's own handling replaces it.
#pragma once

#include "base/wide_string.h"
#include "platform/controls.h"
#include "ui/insert_flag.h"

#include <cstddef>

namespace ui {

// Upper and lower case letters, digits, punctuation and blanks of any script; no control characters.
bool IsPrintable(char16_t character);

// Wireless keys: the first two characters decide whether the rest must be hexadecimal digits, and how long it may get;
// while the caret stands among them nothing is swallowed.
bool FilterWepKeyChar(const platform::EditField& field, char16_t character, InsertFlag insertFlag);
bool FilterPreSharedKeyChar(const platform::EditField& field, char16_t character, InsertFlag insertFlag);

// Digits only, at most `digits` of them; 0: no limit.
bool FilterNumericChar(const platform::EditField& field, char16_t character, InsertFlag insertFlag, std::size_t digits);

// Everything is let through.
bool FilterAnyChar(const platform::EditField& field, char16_t character, InsertFlag insertFlag);

}  // namespace ui
