#include "simulator/terminal_signals.h"

#include "simulator/instance_lock.h"

#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>

namespace simulator {
namespace {

constexpr std::array kEndingSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

// What signal handlers use: set before they are installed, and of types that they may touch.
struct termios originalSettings = {};
std::array<char, 128> restoreText = {};
std::size_t restoreLength = 0;
int wakeDescriptor = -1;
std::atomic<bool> forwardAsked = false;

void RestoreAndEnd(int number) {
  // The terminal may be gone: then there is nothing to put back.
  if (write(STDOUT_FILENO, restoreText.data(), restoreLength) >= 0) {
    tcsetattr(STDIN_FILENO, TCSANOW, &originalSettings);
  }
  signal(number, SIG_DFL);
  raise(number);
}

void WakeUp(int number) {
  const int savedError = errno;
  if (number == kBringForwardSignal) forwardAsked = true;
  const char byte = 'S';
  // A full pipe wakes as well.
  [[maybe_unused]] const auto written = write(wakeDescriptor, &byte, 1);
  errno = savedError;
}

void Install(int number, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  sigaction(number, &action, nullptr);
}

}  // namespace

TerminalSignals::TerminalSignals(const std::string& restore, int wake) {
  tcgetattr(STDIN_FILENO, &originalSettings);
  restoreLength = std::min(restore.size(), restoreText.size());
  std::memcpy(restoreText.data(), restore.data(), restoreLength);
  wakeDescriptor = wake;
  for (const int number : kEndingSignals) Install(number, RestoreAndEnd);
  for (const int number : {kBringForwardSignal, SIGWINCH}) Install(number, WakeUp);
}

TerminalSignals::~TerminalSignals() {
  for (const int number : kEndingSignals) Install(number, SIG_DFL);
  Install(SIGWINCH, SIG_DFL);
  Install(kBringForwardSignal, SIG_IGN);
}

bool TerminalSignals::TakeForwardRequest() { return forwardAsked.exchange(false); }

}  // namespace simulator
