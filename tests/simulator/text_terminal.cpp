#include "tests/simulator/text_terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace tests {
namespace {

using Clock = std::chrono::steady_clock;

// As long as the slowest machine may take.
constexpr std::chrono::seconds kPatience{60};
constexpr std::chrono::milliseconds kUntilAskedAgain{100};
constexpr char kDrawAnew[] = "\x0C";

}  // namespace

TextTerminal::TextTerminal(const std::vector<std::string>& arguments, const Variables& variables, int columns,
                           int rows) {
  struct winsize size = {};
  size.ws_col = static_cast<unsigned short>(columns);
  size.ws_row = static_cast<unsigned short>(rows);
  std::vector<std::string> words = {KEL_TERMINAL};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  child_ = forkpty(&descriptor_, nullptr, nullptr, &size);
  if (child_ != 0) return;
  for (const auto& [name, value] : variables) setenv(name.c_str(), value.c_str(), 1);
  execv(pointers.front(), pointers.data());
  _exit(127);
}

TextTerminal::~TextTerminal() {
  if (child_ > 0) {
    kill(child_, SIGKILL);
    Wait();
  }
  if (descriptor_ >= 0) close(descriptor_);
}

void TextTerminal::Send(std::string_view bytes) const {
  [[maybe_unused]] const auto written = write(descriptor_, bytes.data(), bytes.size());
  const int keyboard = open(ptsname(descriptor_), O_RDWR | O_NOCTTY | O_CLOEXEC);
  const auto end = Clock::now() + kPatience;
  for (int unread = 1; unread > 0 && Clock::now() < end;) {
    if (ioctl(keyboard, FIONREAD, &unread) != 0) break;
    if (unread > 0) poll(nullptr, 0, 1);
  }
  close(keyboard);
}

void TextTerminal::Resize(int columns, int rows) const {
  struct winsize size = {};
  size.ws_col = static_cast<unsigned short>(columns);
  size.ws_row = static_cast<unsigned short>(rows);
  ioctl(descriptor_, TIOCSWINSZ, &size);
}

bool TextTerminal::ReadMore(Milliseconds patience) {
  pollfd wait = {descriptor_, POLLIN, 0};
  if (poll(&wait, 1, static_cast<int>(patience.count())) <= 0) return false;
  std::array<char, 4096> bytes = {};
  const ssize_t length = read(descriptor_, bytes.data(), bytes.size());
  if (length > 0) output_.append(bytes.data(), static_cast<std::size_t>(length));
  return length > 0;
}

bool TextTerminal::Shows(std::string_view text) {
  const auto end = Clock::now() + kPatience;
  output_.clear();
  while (output_.find(text) == std::string::npos) {
    if (Clock::now() > end) return false;
    if (ReadMore(kUntilAskedAgain)) continue;
    output_.clear();
    Send(kDrawAnew);
  }
  return true;
}

bool TextTerminal::ShowsWithout(std::string_view text, std::string_view absent) {
  const auto end = Clock::now() + kPatience;
  while (Clock::now() < end) {
    output_.clear();
    Send(kDrawAnew);
    while (ReadMore(kUntilAskedAgain)) {
    }
    if (output_.find(text) != std::string::npos && output_.find(absent) == std::string::npos) return true;
  }
  return false;
}

TextTerminal::Milliseconds TextTerminal::TimeFrom(std::string_view bytes, std::string_view text) {
  output_.clear();
  const auto start = Clock::now();
  Send(bytes);
  while (output_.find(text) == std::string::npos && ReadMore(kPatience)) {
  }
  return std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
}

int TextTerminal::Wait() {
  while (ReadMore(kPatience)) {
  }
  int status = 0;
  waitpid(child_, &status, 0);
  child_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace tests
