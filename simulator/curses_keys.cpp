#include "simulator/curses_keys.h"

#include "platform/messages.h"
#include "simulator/keys.h"

#include <curses.h>

namespace simulator {
namespace {

namespace key = platform::key;
using platform::host::KeyStroke;

const struct {
  unsigned code;
  KeyStroke stroke;
} kFunctionKeys[] = {
    {KEY_UP, {key::kUp}},
    {KEY_DOWN, {key::kDown}},
    {KEY_LEFT, {key::kLeft}},
    {KEY_RIGHT, {key::kRight}},
    {KEY_HOME, {key::kHome}},
    {KEY_END, {key::kEnd}},
    {KEY_FIND, {key::kHome}},
    {KEY_SELECT, {key::kEnd}},
    {KEY_A1, {key::kHome}},
    {KEY_C1, {key::kEnd}},
    {KEY_PPAGE, {key::kPageUp}},
    {KEY_NPAGE, {key::kPageDown}},
    {KEY_A3, {key::kPageUp}},
    {KEY_C3, {key::kPageDown}},
    {KEY_IC, {key::kInsert}},
    {KEY_DC, {key::kDelete}},
    {KEY_BACKSPACE, {key::kBackspace, u'\b'}},
    {KEY_ENTER, {key::kEnter, u'\r'}},
    {KEY_BTAB, {key::kTab, u'\t', true}},
    {KEY_F(1), {key::kF1}},
    {KEY_F(2), {key::kF2}},
    {KEY_F(3), {key::kF3}},
    {KEY_F(4), {key::kF4}},
};

std::optional<KeyStroke> ControlCharacter(unsigned code) {
  switch (code) {
    case '\r':
    case '\n': return KeyStroke{key::kEnter, u'\r'};
    case '\t': return KeyStroke{key::kTab, u'\t'};
    case 0x1B: return KeyStroke{key::kEscape, u'\x1B'};
    case '\b':
    case 0x7F: return KeyStroke{key::kBackspace, u'\b'};
    default: break;
  }
  if (code == 0 || code > 26) return std::nullopt;
  return KeyStroke{static_cast<std::uint16_t>('A' + code - 1), static_cast<char16_t>(code), false, true};
}

}  // namespace

std::optional<KeyStroke> KeyStrokeOf(unsigned code, bool isFunctionKey) {
  if (isFunctionKey) {
    for (const auto& entry : kFunctionKeys) {
      if (entry.code == code) return entry.stroke;
    }
    return std::nullopt;
  }
  if (code < 0x20 || code == 0x7F) return ControlCharacter(code);
  // The program's texts are UTF-16, a key of the keypad one unit.
  if (code > 0xFFFF) return std::nullopt;
  const Key pressed = KeyForCharacter(static_cast<char16_t>(code));
  return KeyStroke{pressed.virtualKey, pressed.character, pressed.shift, false};
}

}  // namespace simulator
