#include "platform/events.h"

#include "platform/debug.h"
#include "platform/host/named_events.h"
#include "platform/host/session.h"

#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <thread>

namespace platform {

namespace {

struct SharedEvent {
  std::mutex mutex;
  std::condition_variable changed;
  bool signalled = false;    // under mutex
  std::uint64_t pulses = 0;  // under mutex; a waiter that sees it move was there when the event was pulsed
};

struct NamedEvents {
  std::mutex mutex;
  std::map<WideString, std::weak_ptr<SharedEvent>> byName;  // under mutex
};

NamedEvents& AllNamedEvents() {
  static NamedEvents events;
  return events;
}

std::shared_ptr<SharedEvent> MakeEvent(bool signalled) {
  auto event = std::make_shared<SharedEvent>();
  event->signalled = signalled;
  return event;
}

std::shared_ptr<SharedEvent> OpenEvent(WideStringView name, bool signalled) {
  if (name.empty()) return MakeEvent(signalled);
  NamedEvents& all = AllNamedEvents();
  const std::lock_guard lock(all.mutex);
  std::weak_ptr<SharedEvent>& known = all.byName[WideString(name)];
  std::shared_ptr<SharedEvent> event = known.lock();
  if (!event) known = event = MakeEvent(signalled);
  return event;
}

}  // namespace

void host::ForgetNamedEvents() {
  NamedEvents& all = AllNamedEvents();
  const std::lock_guard lock(all.mutex);
  all.byName.clear();
}

struct Event::State {
  WideString name;
  std::shared_ptr<SharedEvent> shared;
};

Event::Event(WideStringView name, bool initiallySignalled)
    : state_(std::make_unique<State>(State{WideString(name), OpenEvent(name, initiallySignalled)})) {}

Event::~Event() = default;

void Event::Set() {
  const std::lock_guard lock(state_->shared->mutex);
  state_->shared->signalled = true;
  state_->shared->changed.notify_all();
}

void Event::Reset() {
  const std::lock_guard lock(state_->shared->mutex);
  state_->shared->signalled = false;
}

void Event::Pulse() {
  {
    const std::lock_guard lock(state_->shared->mutex);
    state_->shared->signalled = false;
    ++state_->shared->pulses;
    state_->shared->changed.notify_all();
  }
  if (host::Observer* observer = host::CurrentEnvironment().observer) observer->Pulsed(state_->name);
}

bool Event::Wait(std::optional<int> timeoutMs) {
  const auto& fails = host::CurrentEnvironment().failsWait;
  if (fails && fails(state_->name)) return false;
  SharedEvent& event = *state_->shared;
  std::unique_lock lock(event.mutex);
  const std::uint64_t pulsesBefore = event.pulses;
  const auto isReleased = [&] { return event.signalled || event.pulses != pulsesBefore; };
  if (timeoutMs) return event.changed.wait_for(lock, std::chrono::milliseconds(*timeoutMs), isReleased);
  event.changed.wait(lock, isReleased);
  return true;
}

struct Thread::State {
  std::thread thread;
};

Thread::Thread(std::function<void()> routine) : state_(std::make_unique<State>()) {
  host::MessageQueue& queue = host::CurrentSession().queue;
  const auto run = [&queue, routine = std::move(routine)] {
    try {
      routine();
    } catch (const std::exception&) {
      DebugOutput(u"EXCEPTION: Thread::Thread()\r\n");
    }
    queue.ThreadEnded();
  };
  queue.ThreadStarted();
  try {
    state_->thread = std::thread(run);
  } catch (const std::exception&) {
    run();
  }
}

Thread::~Thread() {
  if (state_->thread.joinable()) state_->thread.join();
}

}  // namespace platform
