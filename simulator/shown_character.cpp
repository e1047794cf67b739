#include "simulator/shown_character.h"

#include <climits>
#include <cwchar>

namespace simulator {
namespace {

const struct {
  char32_t character;
  wchar_t shown;
} kLookAlikes[] = {
    {U'─', L'-'}, {U'│', L'|'}, {U'┌', L'+'}, {U'┐', L'+'}, {U'└', L'+'}, {U'┘', L'+'}, {U'█', L'#'}, {U'░', L'.'},
    {U'▾', L'v'}, {U'▲', L'^'}, {U'▼', L'v'}, {U'↑', L'^'}, {U'↓', L'v'}, {U'←', L'<'}, {U'→', L'>'}, {U'\u00A0', L' '},
};

bool FillsOneCell(wchar_t character) {
  char bytes[MB_LEN_MAX] = {};
  std::mbstate_t state = {};
  // A character that takes more cells would shift the rest of the row.
  return std::wcrtomb(bytes, character, &state) != static_cast<std::size_t>(-1) && wcwidth(character) == 1;
}

}  // namespace

wchar_t ShownCharacter(char32_t character) {
  const auto same = static_cast<wchar_t>(character);
  if (FillsOneCell(same)) return same;
  for (const auto& entry : kLookAlikes) {
    if (entry.character == character) return entry.shown;
  }
  return L'?';
}

}  // namespace simulator
