#include "platform/host/dialog_keys.h"

#include "platform/host/dialog_window.h"
#include "platform/host/dispatch.h"
#include "platform/host/focus.h"
#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

// The dialog's own control that `window` is or lies in; null for the dialog itself.
WindowHandle ControlAround(WindowHandle dialog, WindowHandle window) {
  for (auto record = Find(window); record && record->IsChild(); record = Find(record->parent)) {
    if (record->parent == dialog) return record->handle;
  }
  return nullptr;
}

bool CanHaveFocus(const WindowRecord& control) {
  return control.Has(style::kVisible) && !control.Has(style::kDisabled);
}

// Calls `accept` on the controls after `from` (before it, when backwards), round to `from` itself, until one is taken.
template <typename Accept>
WindowHandle Around(const std::vector<WindowHandle>& controls, WindowHandle from, bool backwards, Accept accept) {
  const auto count = static_cast<std::ptrdiff_t>(controls.size());
  const auto place = std::find(controls.begin(), controls.end(), from);
  std::ptrdiff_t start = backwards ? 0 : -1;
  if (place != controls.end()) start = place - controls.begin();
  for (std::ptrdiff_t step = 1; step <= count; ++step) {
    const std::ptrdiff_t index = ((backwards ? start - step : start + step) + count) % count;
    const auto record = Find(controls[static_cast<std::size_t>(index)]);
    if (record && accept(*record)) return record->handle;
  }
  return nullptr;
}

// The controls from the last group mark at or before `from` up to the next mark.
std::vector<WindowHandle> GroupOf(const std::vector<WindowHandle>& controls, WindowHandle from) {
  std::vector<WindowHandle> group;
  bool found = from == nullptr;
  for (const WindowHandle each : controls) {
    if ((StyleOf(each) & style::kGroup) != 0) {
      if (found) return group;
      group.clear();
    }
    group.push_back(each);
    found = found || each == from;
  }
  return group;
}

void OnArrow(WindowHandle dialog, WindowHandle from, bool backwards) {
  const WindowHandle next = NextInGroup(dialog, ControlAround(dialog, from), backwards);
  if (next == nullptr) return;
  if (Send(next, message::kGetDialogCode) == (kDialogCodeAnyButton | kDialogCodeRadio)) {
    Focus(next);
  } else {
    Send(dialog, kDialogNextControl, ToWParam(next), 1);
  }
}

void OnEnter(WindowHandle dialog) {
  const WindowHandle focused = FocusedWindow();
  if (IsInside(dialog, focused) && (Send(focused, message::kGetDialogCode) & kDialogCodeDefaultButton) != 0) {
    Send(dialog, message::kCommand, static_cast<WParam>(IdOf(focused)), ToLParam(focused));
    return;
  }
  const LResult answer = Send(dialog, kDialogGetDefaultId);
  const int id = (answer >> 16) == kHasDefaultId ? static_cast<int>(answer & 0xFFFF) : kIdOk;
  const WindowHandle control = ControlOf(dialog, id);
  if (id == kIdOk || control == nullptr || IsEnabled(control))
    Send(dialog, message::kCommand, static_cast<WParam>(id), ToLParam(control));
}

// Whether the dialog took the key.
bool HandleKey(WindowHandle dialog, const QueuedMessage& queued) {
  const Message& message = queued.message;
  const LResult code = Send(queued.window, message::kGetDialogCode, message.wParam, ToLParam(&message));
  if ((code & dialog_code::kWantAllKeys) != 0) return false;
  switch (message.wParam) {
    case key::kTab:
      if ((code & dialog_code::kWantTab) != 0) return false;
      Send(dialog, kDialogNextControl, IsKeyDown(key::kShift) ? 1 : 0, 0);
      return true;
    case key::kRight:
    case key::kDown:
    case key::kLeft:
    case key::kUp:
      if ((code & dialog_code::kWantArrows) != 0) return false;
      OnArrow(dialog, queued.window, message.wParam == key::kLeft || message.wParam == key::kUp);
      return true;
    case key::kEscape: Send(dialog, message::kCommand, kIdCancel, ToLParam(ControlOf(dialog, kIdCancel))); return true;
    case key::kEnter: OnEnter(dialog); return true;
    default: return false;
  }
}

}  // namespace

WindowHandle NextTabStop(WindowHandle dialog, WindowHandle from, bool backwards) {
  const auto record = Find(dialog);
  if (!record) return nullptr;
  return Around(record->children, ControlAround(dialog, from), backwards,
                [](const WindowRecord& control) { return control.Has(style::kTabStop) && CanHaveFocus(control); });
}

WindowHandle FirstControl(WindowHandle dialog) {
  const WindowHandle stop = NextTabStop(dialog, nullptr, false);
  const auto record = Find(dialog);
  if (stop != nullptr || !record) return stop;
  return Around(record->children, nullptr, false, CanHaveFocus);
}

WindowHandle NextInGroup(WindowHandle dialog, WindowHandle from, bool backwards) {
  const auto record = Find(dialog);
  if (!record) return nullptr;
  return Around(GroupOf(record->children, from), from, backwards, CanHaveFocus);
}

bool HandleDialogMessage(WindowHandle dialog, const QueuedMessage& queued) {
  if (!Find(dialog)) return false;
  if (queued.window != dialog && !IsInside(dialog, queued.window)) return false;
  const Message& message = queued.message;
  if (message.id == message::kKeyDown && HandleKey(dialog, queued)) return true;
  if (message.id == message::kChar) {
    // Asked as for keys; no control of the terminal's dialogs has an accelerator.
    Send(queued.window, message::kGetDialogCode, message.wParam, ToLParam(&message));
  }
  TranslateKey(queued);
  Send(queued.window, message.id, message.wParam, message.lParam);
  return true;
}

}  // namespace platform::host
