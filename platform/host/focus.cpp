#include "platform/host/focus.h"

#include <algorithm>

namespace platform::host {

namespace {

bool CanBeActivated(WindowHandle window) {
  const auto record = Find(window);
  return record && !record->IsChild() && !record->beingDestroyed && record->Has(style::kVisible) &&
         !record->Has(style::kDisabled);
}

// The focus has moved when the messages are sent; a handler may move it on.
void MoveFocus(WindowHandle window) {
  Session& session = CurrentSession();
  const WindowHandle previous = session.focused;
  if (previous == window) return;
  session.focused = window;
  if (previous != nullptr) {
    Send(previous, message::kKillFocus, ToWParam(window));
    if (session.focused != window) return;
  }
  if (Find(window)) Send(window, message::kSetFocus, ToWParam(Find(previous) ? previous : nullptr));
}

// False when a handler has made another window active meanwhile.
bool MoveActivation(WindowHandle window) {
  Session& session = CurrentSession();
  const WindowHandle previous = session.active;
  Send(previous, message::kActivate, kInactive, ToLParam(window));
  if (session.active != previous) return session.active == window;
  if (window != nullptr && !Find(window)) return false;
  session.active = window;
  RaiseToTop(window);
  if (window != nullptr) Send(window, message::kActivate, kActive, ToLParam(Find(previous) ? previous : nullptr));
  return session.active == window;
}

}  // namespace

WindowHandle RootOf(WindowHandle window) {
  auto record = Find(window);
  while (record && record->IsChild()) {
    window = record->parent;
    record = Find(window);
  }
  return record ? window : nullptr;
}

bool IsInside(WindowHandle ancestor, WindowHandle window) {
  for (auto record = Find(window); record && record->IsChild(); record = Find(record->parent)) {
    if (record->parent == ancestor) return true;
  }
  return false;
}

bool SetActive(WindowHandle window) {
  Session& session = CurrentSession();
  if (window == session.active) return true;
  if (window != nullptr) {
    const auto record = Find(window);
    if (!record || record->IsChild()) return false;
  }
  if (!MoveActivation(window)) return false;
  if (window == nullptr || session.focused == nullptr || RootOf(session.focused) != window) MoveFocus(window);
  return true;
}

void ActivateAnother(WindowHandle window) {
  const auto record = Find(window);
  const WindowHandle owner = record ? RootOf(record->owner) : nullptr;
  if (CanBeActivated(owner)) {
    SetActive(owner);
    return;
  }
  const std::vector<WindowHandle> all = CurrentSession().topLevels;
  for (auto next = all.rbegin(); next != all.rend(); ++next) {
    if (*next == window || !CanBeActivated(*next)) continue;
    SetActive(*next);
    return;
  }
  SetActive(nullptr);
}

void RaiseToTop(WindowHandle window) {
  std::vector<WindowHandle>& all = CurrentSession().topLevels;
  const auto place = std::find(all.begin(), all.end(), window);
  if (place != all.end()) std::rotate(place, place + 1, all.end());
}

}  // namespace platform::host

namespace platform {

using namespace host;

void Focus(WindowHandle window) {
  Session& session = CurrentSession();
  if (window == session.focused) return;
  for (auto record = Find(window);; record = Find(record->parent)) {
    if (!record || record->Has(style::kDisabled)) return;
    if (!record->IsChild()) break;
  }
  const WindowHandle root = RootOf(window);
  if (root != session.active && !MoveActivation(root)) return;
  if (Find(window)) MoveFocus(window);
}

WindowHandle FocusedWindow() { return CurrentSession().focused; }
WindowHandle ActiveWindow() { return CurrentSession().active; }

void Activate(WindowHandle window) {
  if (Find(window)) SetActive(window);
}

void BringToForeground(WindowHandle window) {
  Session& session = CurrentSession();
  const auto foreign = std::find(session.foreign.begin(), session.foreign.end(), window);
  if (window != nullptr && foreign != session.foreign.end()) {
    if (session.environment.bringOtherForward)
      session.environment.bringOtherForward(static_cast<std::size_t>(foreign - session.foreign.begin()));
    return;
  }
  const WindowHandle root = RootOf(window);
  if (root != nullptr) SetActive(root);
}

}  // namespace platform
