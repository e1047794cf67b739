// What a PC's terminal can show of a character.
#pragma once

namespace simulator {

// The character, when the locale has it and it takes one cell; else one of ASCII that looks like it, and '?' for what
// has none.
wchar_t ShownCharacter(char32_t character);

}  // namespace simulator
