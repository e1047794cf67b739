#include "platform/events.h"

#include "platform/debug.h"
#include "platform/win32/owned_handle.h"

#include <exception>

namespace platform {

namespace {

using win32::OwnedHandle;

// Windows CE has one call for all three, and its headers make the others from it.
enum class Change { kPulse = 1, kReset = 2, kSet = 3 };

void Modify(HANDLE event, Change change) {
#ifdef UNDER_CE
  EventModify(event, static_cast<DWORD>(change));
#else
  switch (change) {
    case Change::kPulse: PulseEvent(event); break;
    case Change::kReset: ResetEvent(event); break;
    case Change::kSet: SetEvent(event); break;
  }
#endif
}

DWORD WINAPI RunRoutine(void* routine) {
  try {
    (*static_cast<const std::function<void()>*>(routine))();
  } catch (const std::exception&) {
    DebugOutput(u"EXCEPTION: Thread::Thread()\r\n");
  }
  return 0;
}

}  // namespace

struct Event::State {
  OwnedHandle handle;
};

Event::Event(WideStringView name, bool initiallySignalled) {
  const WideString zeroEnded(name);
  const wchar_t* apiName = name.empty() ? nullptr : win32::ToApi(zeroEnded);
  constexpr BOOL kManualReset = TRUE;
  state_ = std::make_unique<State>(OwnedHandle(CreateEventW(nullptr, kManualReset, initiallySignalled, apiName)));
}

Event::~Event() = default;

void Event::Set() { Modify(state_->handle.Get(), Change::kSet); }
void Event::Reset() { Modify(state_->handle.Get(), Change::kReset); }
void Event::Pulse() { Modify(state_->handle.Get(), Change::kPulse); }

bool Event::Wait(std::optional<int> timeoutMs) {
  const DWORD limit = timeoutMs ? static_cast<DWORD>(*timeoutMs) : INFINITE;
  return WaitForSingleObject(state_->handle.Get(), limit) == WAIT_OBJECT_0;
}

// The routine stays where it is for as long as the thread runs.
struct Thread::State {
  std::function<void()> routine;
  OwnedHandle handle;
};

Thread::Thread(std::function<void()> routine) : state_(std::make_unique<State>()) {
  state_->routine = std::move(routine);
  state_->handle = OwnedHandle(CreateThread(nullptr, 0, RunRoutine, &state_->routine, 0, nullptr));
  if (!state_->handle) RunRoutine(&state_->routine);
}

Thread::~Thread() {
  if (state_->handle) WaitForSingleObject(state_->handle.Get(), INFINITE);
}

}  // namespace platform
