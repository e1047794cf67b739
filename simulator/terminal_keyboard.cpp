#include "simulator/terminal_keyboard.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace simulator {
namespace {

using std::chrono::milliseconds;

// Over a network the bytes of one key come some 30 ms apart; people notice more than 50.
constexpr milliseconds kEscapeDelay{40};
constexpr milliseconds kLongestEscapeDelay{10'000};
// Nobody types the beginning of a sequence, so there is no hurry.
constexpr milliseconds kSequenceDelay{1000};

}  // namespace

TerminalKeyboard::TerminalKeyboard(int descriptor, KeyDecoder decoder, milliseconds escapeDelay)
    : descriptor_(descriptor), decoder_(std::move(decoder)), escapeDelay_(escapeDelay) {}

TerminalKeyboard::Event TerminalKeyboard::Wait(int wakeDescriptor) {
  while (!TakeKey()) {
    std::array<pollfd, 2> waits = {pollfd{descriptor_, POLLIN, 0}, pollfd{wakeDescriptor, POLLIN, 0}};
    const int ready = poll(waits.data(), waits.size(), PatienceMs());
    if (ready < 0 && errno != EINTR) return Event::kGone;
    if (ready == 0) decoder_.Close();
    if (ready <= 0) continue;
    if ((waits[0].revents & POLLIN) != 0) {
      if (!ReadBytes()) return Event::kGone;
    } else if (waits[0].revents != 0) {
      return Event::kGone;
    }
    if (waits[1].revents != 0) return Event::kWoken;
  }
  return Event::kKey;
}

bool TerminalKeyboard::TakeKey() {
  const auto stroke = decoder_.Next();
  if (stroke) pressed_ = *stroke;
  return stroke.has_value();
}

// -1: as long as it takes. Measured from the last byte, however often the wait was interrupted.
int TerminalKeyboard::PatienceMs() const {
  const KeyDecoder::Rest rest = decoder_.Left();
  if (rest == KeyDecoder::Rest::kNothing) return -1;
  const milliseconds delay = rest == KeyDecoder::Rest::kEscape ? escapeDelay_ : std::max(escapeDelay_, kSequenceDelay);
  const auto left = std::chrono::ceil<milliseconds>(lastByte_ + delay - Clock::now());
  return static_cast<int>(std::max(left, milliseconds(0)).count());
}

bool TerminalKeyboard::ReadBytes() {
  std::array<char, 256> bytes = {};
  const ssize_t length = read(descriptor_, bytes.data(), bytes.size());
  if (length < 0) return errno == EINTR || errno == EAGAIN;
  decoder_.Add({bytes.data(), static_cast<std::size_t>(length)});
  lastByte_ = Clock::now();
  return length > 0;
}

milliseconds EscapeDelay() {
  const char* text = std::getenv("ESCDELAY");
  const std::string_view digits = text == nullptr ? "" : text;
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size() || number < 0) return kEscapeDelay;
  return std::min(milliseconds(number), kLongestEscapeDelay);
}

}  // namespace simulator
