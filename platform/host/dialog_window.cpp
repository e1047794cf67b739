#include "platform/host/dialog_window.h"

#include "platform/host/dialog_keys.h"
#include "platform/host/focus.h"
#include "platform/host/painting.h"
#include "platform/host/plain_window.h"

namespace platform::host {

namespace {

constexpr message::Id kButtonSetStyle = 0x00F4;
constexpr LResult kPushButton = kDialogCodeButton | kDialogCodeDefaultButton;

}  // namespace

std::unique_ptr<WindowBehaviour> MakeDialogBehaviour() { return std::make_unique<DialogWindow>(); }

DialogWindow* DialogWindow::Of(WindowRecord& window) {
  return window.kind == WindowKind::kDialog ? static_cast<DialogWindow*>(window.behaviour.get()) : nullptr;
}

void DialogWindow::FocusControl(WindowHandle control) {
  if ((Send(control, message::kGetDialogCode) & dialog_code::kHasSetSelection) != 0)
    Send(control, message::kEditSetSelection, 0, -1);
  Focus(control);
}

LResult DialogWindow::Handle(WindowRecord& window, const Message& message) {
  switch (message.id) {
    case message::kActivate:
      if ((message.wParam & 0xFFFF) != kInactive) {
        RestoreFocus(window, true);
      } else {
        SaveFocus(window);
      }
      return 0;
    case message::kSetFocus: RestoreFocus(window, false); return 0;
    case message::kShowWindow:
      if (message.wParam == 0) SaveFocus(window);
      return 0;
    case message::kClose:
      Post(window.handle, message::kCommand, kIdCancel, ToLParam(ControlOf(window.handle, kIdCancel)));
      return 0;
    case kDialogNextControl: {
      const WindowHandle next = message.lParam != 0 ? FromParam<WindowObject>(message.wParam)
                                                    : NextTabStop(window.handle, FocusedWindow(), message.wParam != 0);
      if (next != nullptr) FocusControl(next);
      MarkDefaultButton(window, next);
      return 0;
    }
    case kDialogGetDefaultId: return !ended && defaultId != 0 ? (kHasDefaultId << 16) | defaultId : 0;
    case kDialogSetDefaultId: defaultId = static_cast<int>(message.wParam & 0xFFFF); return 1;
    case message::kPaint: PaintControl(window, message::kControlColorDialog); return 0;
    default: return HandlePlainMessage(window, message);
  }
}

void DialogWindow::SaveFocus(const WindowRecord& window) {
  if (IsInside(window.handle, FocusedWindow())) savedFocus_ = FocusedWindow();
}

void DialogWindow::RestoreFocus(const WindowRecord& window, bool onlyActivated) {
  if (ended) return;
  if (!Find(savedFocus_) || savedFocus_ == window.handle) {
    savedFocus_ = nullptr;
    if (onlyActivated) return;
    savedFocus_ = FirstControl(window.handle);
    if (savedFocus_ == nullptr) return;
  }
  const WindowHandle control = savedFocus_;
  savedFocus_ = nullptr;
  if (onlyActivated) {
    Focus(control);
  } else {
    FocusControl(control);
  }
}

// The push button with the focus shows as the default one; without one the dialog's own default button does.
void DialogWindow::MarkDefaultButton(const WindowRecord& window, WindowHandle focused) {
  if ((Send(focused, message::kGetDialogCode) & kPushButton) == 0) focused = ControlOf(window.handle, defaultId);
  const std::vector<WindowHandle> controls = window.children;
  for (const WindowHandle control : controls) {
    if (control != focused && (Send(control, message::kGetDialogCode) & kDialogCodeDefaultButton) != 0)
      Send(control, kButtonSetStyle, 0, 1);
  }
  if (focused != nullptr && (Send(focused, message::kGetDialogCode) & kDialogCodeButton) != 0)
    Send(focused, kButtonSetStyle, style::kButtonDefault, 1);
}

}  // namespace platform::host
