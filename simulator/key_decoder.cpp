#include "simulator/key_decoder.h"

#include "platform/messages.h"
#include "simulator/keys.h"

#include <algorithm>
#include <charconv>
#include <cwchar>
#include <utility>

namespace simulator {
namespace {

namespace key = platform::key;
using platform::host::KeyStroke;

constexpr char kEscape = '\x1B';
constexpr KeyStroke kEscapeKey{key::kEscape, u'\x1B'};

std::optional<KeyStroke> ControlCharacter(unsigned code) {
  switch (code) {
    case '\r':
    case '\n': return KeyStroke{key::kEnter, u'\r'};
    case '\t': return KeyStroke{key::kTab, u'\t'};
    case '\b':
    case 0x7F: return KeyStroke{key::kBackspace, u'\b'};
    default: break;
  }
  if (code == 0 || code > 26) return std::nullopt;
  return KeyStroke{static_cast<std::uint16_t>('A' + code - 1), static_cast<char16_t>(code), false, true};
}

// A key that types a character. Nothing for one that the keypad lacks.
std::optional<KeyStroke> TypedKey(wchar_t character) {
  const auto code = static_cast<unsigned>(character);
  if (code < 0x20 || code == 0x7F) return ControlCharacter(code);
  // The program's texts are UTF-16, a key of the keypad one unit.
  if (code > 0xFFFF) return std::nullopt;
  const Key pressed = KeyForCharacter(static_cast<char16_t>(code));
  return KeyStroke{pressed.virtualKey, pressed.character, pressed.shift, false};
}

// Which of Shift and Control is held down: 1 and the sum of 1 for Shift, 2 for Alt and 4 for Control.
struct Modifiers {
  bool shift = false;
  bool control = false;
};

Modifiers ModifiersOf(std::string_view number) {
  unsigned code = 1;
  std::from_chars(number.data(), number.data() + number.size(), code);
  const unsigned held = code == 0 ? 0 : code - 1;
  return {(held & 1) != 0, (held & 4) != 0};
}

// "[1;5B", a key with another held down, as "[B"; "[3;5~" as "[3~". Other sequences stay as they are.
std::string WithoutModifiers(std::string_view sequence, Modifiers& modifiers) {
  const std::size_t semicolon = sequence.find(';');
  if (semicolon == std::string_view::npos || sequence.size() < 2) return std::string(sequence);
  modifiers = ModifiersOf(sequence.substr(semicolon + 1, sequence.size() - semicolon - 2));
  const bool isNumbered = sequence.back() == '~';
  return std::string(sequence.substr(0, isNumbered ? semicolon : 2)) + sequence.back();
}

}  // namespace

KeyDecoder::KeyDecoder(Sequences own) : known_(std::move(own)) {
  // The terminal's own come first, since they count when both have one.
  for (KeySequence& usual : UsualKeySequences()) known_.push_back(std::move(usual));
}

std::optional<KeyStroke> KeyDecoder::Next() {
  while (!bytes_.empty()) {
    const Reading reading = Read();
    if (reading.length == 0) return std::nullopt;
    bytes_.erase(0, reading.length);
    if (reading.stroke) return reading.stroke;
  }
  closed_ = false;
  return std::nullopt;
}

KeyDecoder::Rest KeyDecoder::Left() const {
  if (bytes_.empty()) return Rest::kNothing;
  return bytes_ == std::string_view(&kEscape, 1) ? Rest::kEscape : Rest::kBegun;
}

void KeyDecoder::Close() { closed_ = true; }

KeyDecoder::Reading KeyDecoder::Read() const {
  if (bytes_.front() != kEscape) return ReadCharacter();
  const Reading reading = ReadSequence();
  if (reading.length > 0 || !closed_) return reading;
  // Esc, or Esc and one more key; more than that is the rest of a sequence that was cut off.
  constexpr std::size_t kTwoKeys = 2;
  return bytes_.size() <= kTwoKeys ? Reading{1, kEscapeKey} : Reading{bytes_.size()};
}

KeyDecoder::Reading KeyDecoder::ReadSequence() const {
  if (bytes_.size() == 1) return {};
  std::optional<Reading> longest;
  for (const KeySequence& sequence : known_) {
    const bool isLonger = !longest || sequence.bytes.size() > longest->length;
    if (bytes_.starts_with(sequence.bytes) && isLonger) longest = Reading{sequence.bytes.size(), sequence.stroke};
  }
  if (longest) return *longest;
  if (BeginsKnown()) return {};
  if (bytes_[1] == '[') return ReadControlSequence();
  // A key of a keypad with a mode of its own, that this keypad lacks.
  constexpr std::size_t kKeypadKey = 3;
  if (bytes_[1] == 'O') return {kKeypadKey};
  return {1, kEscapeKey};
}

// Esc, "[", parameters and one last byte.
KeyDecoder::Reading KeyDecoder::ReadControlSequence() const {
  constexpr std::size_t kLongest = 64;
  const auto isParameter = [](char byte) { return byte >= 0x20 && byte < 0x40; };
  const auto end = std::find_if_not(bytes_.begin() + 2, bytes_.end(), isParameter);
  const auto length = static_cast<std::size_t>(end - bytes_.begin());
  if (end == bytes_.end()) return {length < kLongest ? 0 : length};
  // A byte that ends no sequence begins another key.
  if (*end < 0x40 || *end > 0x7E) return {length};
  Modifiers modifiers;
  const auto plain = WithoutModifiers(std::string_view(bytes_).substr(0, length + 1), modifiers);
  const auto found = Find(plain);
  if (found == known_.end()) return {length + 1};
  KeyStroke stroke = found->stroke;
  stroke.shift |= modifiers.shift;
  stroke.control |= modifiers.control;
  return {length + 1, stroke};
}

KeyDecoder::Reading KeyDecoder::ReadCharacter() const {
  wchar_t character = 0;
  std::mbstate_t state = {};
  const std::size_t length = std::mbrtowc(&character, bytes_.data(), bytes_.size(), &state);
  constexpr auto kInvalid = static_cast<std::size_t>(-1);
  constexpr auto kIncomplete = static_cast<std::size_t>(-2);
  if (length == kInvalid || length == 0) return {1};
  if (length == kIncomplete) return {closed_ ? bytes_.size() : 0};
  return {length, TypedKey(character)};
}

KeyDecoder::Sequences::const_iterator KeyDecoder::Find(std::string_view sequence) const {
  return std::find_if(known_.begin(), known_.end(),
                      [sequence](const KeySequence& known) { return known.bytes == sequence; });
}

bool KeyDecoder::BeginsKnown() const {
  return std::any_of(known_.begin(), known_.end(),
                     [this](const auto& known) { return known.bytes.starts_with(bytes_); });
}

}  // namespace simulator
