#include "simulator/ending_signals.h"

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <initializer_list>

namespace simulator {
namespace {

sigset_t TheSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, number);
  return signals;
}

}  // namespace

EndingSignals::EndingSignals() {
  const sigset_t signals = TheSignals();
  descriptor_ = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
  // Else they would end the process all the same.
  if (descriptor_ >= 0) sigprocmask(SIG_BLOCK, &signals, nullptr);
}

EndingSignals::~EndingSignals() {
  if (descriptor_ < 0) return;
  // Those that came have been obeyed.
  signalfd_siginfo taken = {};
  while (read(descriptor_, &taken, sizeof taken) > 0) {
  }
  close(descriptor_);
  const sigset_t signals = TheSignals();
  sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}

}  // namespace simulator
