// What a dialog does by itself.
#pragma once

#include "platform/host/window_record.h"

namespace platform::host {

inline constexpr message::Id kDialogNextControl = 0x0028;
inline constexpr message::Id kDialogGetDefaultId = message::kUser;
inline constexpr message::Id kDialogSetDefaultId = message::kUser + 1;
inline constexpr LResult kHasDefaultId = 0x534B;  // high word of the answer to kDialogGetDefaultId

class DialogWindow : public WindowBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override;

  // The dialog that a window is, or null.
  static DialogWindow* Of(WindowRecord& window);

  // Gives the focus to a control, with all of its text selected when it is an edit field.
  static void FocusControl(WindowHandle control);

  bool ended = false;
  LResult result = 0;
  int defaultId = 0;  // the button that Enter presses when no button has the focus; 0: none

 private:
  void SaveFocus(const WindowRecord& window);
  void RestoreFocus(const WindowRecord& window, bool onlyActivated);
  void MarkDefaultButton(const WindowRecord& window, WindowHandle focused);

  WindowHandle savedFocus_ = nullptr;
};

}  // namespace platform::host
