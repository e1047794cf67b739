// Manual-reset events and threads.
#pragma once

#include "base/wide_string.h"

#include <functional>
#include <memory>
#include <optional>

namespace platform {

// Events of one name are one event, in all processes of the machine; an empty name makes a private one.
class Event {
 public:
  Event(WideStringView name, bool initiallySignalled);
  ~Event();
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  void Set();
  void Reset();
  void Pulse();  // wakes those who wait now and leaves the event not signalled
  // True when signalled, false after the time-out (none: waits for ever) or when waiting failed.
  bool Wait(std::optional<int> timeoutMs = std::nullopt);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// A running thread; the destructor waits for its end. What the routine throws ends it and is logged. When the system
// has no thread left, the routine has run when the constructor returns.
class Thread {
 public:
  explicit Thread(std::function<void()> routine);
  ~Thread();
  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace platform
