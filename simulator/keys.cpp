#include "simulator/keys.h"

#include "base/utf8.h"
#include "platform/messages.h"

namespace simulator {
namespace {

namespace key = platform::key;

const struct {
  std::string_view name;
  Key key;
} kNamedKeys[] = {
    {"Up", {key::kUp}},
    {"Down", {key::kDown}},
    {"Left", {key::kLeft}},
    {"Right", {key::kRight}},
    {"Enter", {key::kEnter, u'\r'}},
    {"Esc", {key::kEscape, u'\x1B'}},
    {"Tab", {key::kTab, u'\t'}},
    {"ShiftTab", {key::kTab, u'\t', true}},
    {"Home", {key::kHome}},
    {"End", {key::kEnd}},
    {"Insert", {key::kInsert}},
    {"Delete", {key::kDelete}},
    {"Backspace", {key::kBackspace, u'\b'}},
    {"PageUp", {key::kPageUp}},
    {"PageDown", {key::kPageDown}},
    {"F1", {key::kF1}},
    {"F2", {key::kF2}},
    {"F3", {key::kF3}},
    {"F4", {key::kF4}},
};

}  // namespace

std::optional<Key> KeyByName(std::string_view name) {
  for (const auto& named : kNamedKeys) {
    if (named.name == name) return named.key;
  }
  const WideString text = base::FromUtf8(name);
  if (text.size() != 1) return std::nullopt;
  return KeyForCharacter(text.front());
}

Key KeyForCharacter(char16_t character) {
  const bool isDigit = base::IsDigit(character);
  const bool isSmall = character >= u'a' && character <= u'z';
  const bool isCapital = character >= u'A' && character <= u'Z';
  const bool hasOwnKey = isDigit || isSmall || isCapital || character == u' ';
  // The virtual keys of digits and letters are their characters, letters as capitals.
  const std::uint16_t virtualKey = hasOwnKey ? static_cast<std::uint16_t>(base::ToUpper(character)) : std::uint16_t{0};
  return {virtualKey, character, isCapital};
}

std::string KeyNames() {
  std::string names;
  for (const auto& named : kNamedKeys) names.append(names.empty() ? "" : " ").append(named.name);
  return names;
}

}  // namespace simulator
