#include "platform/host/environment.h"

#include "platform/host/named_events.h"
#include "platform/host/session.h"

#include <utility>

namespace platform::host {

namespace {

std::unique_ptr<Session>& InstalledSession() {
  static std::unique_ptr<Session> session;
  return session;
}

}  // namespace

Session& CurrentSession() {
  static Session bare;
  return InstalledSession() ? *InstalledSession() : bare;
}

Environment& CurrentEnvironment() { return CurrentSession().environment; }

bool IsRefused(Use use) {
  const auto& refuses = CurrentEnvironment().refuses;
  return refuses && refuses(use);
}

bool IsWarmReset() { return CurrentSession().queue.IsResetting(); }

InstalledEnvironment::InstalledEnvironment(Environment environment) {
  ForgetNamedEvents();
  InstalledSession() = std::make_unique<Session>();
  InstalledSession()->environment = std::move(environment);
}

InstalledEnvironment::~InstalledEnvironment() {
  // The windows' handlers go while the session still answers them.
  const auto windows = std::exchange(InstalledSession()->windows, {});
  InstalledSession()->focused = InstalledSession()->active = nullptr;
  std::vector<std::unique_ptr<MessageHandler>> handlers;
  handlers.reserve(windows.size());
  for (const auto& [handle, record] : windows) handlers.push_back(std::move(record->programHandler));
  handlers.clear();
  InstalledSession().reset();
  ForgetNamedEvents();
}

std::shared_ptr<WindowRecord> Find(WindowHandle window) {
  const auto& windows = CurrentSession().windows;
  const auto found = windows.find(window);
  return found != windows.end() ? found->second : nullptr;
}

}  // namespace platform::host
