// Parts that the controls share, and their makers.
#pragma once

#include "platform/host/window_record.h"

namespace platform::host {

// Answers to message::kGetDialogCode that only the system's controls give.
inline constexpr LResult kDialogCodeDefaultButton = 0x0010;
inline constexpr LResult kDialogCodeButton = 0x0020;  // a push button that is not the default one
inline constexpr LResult kDialogCodeRadio = 0x0040;
inline constexpr LResult kDialogCodeStatic = 0x0100;
inline constexpr LResult kDialogCodeAnyButton = 0x2000;

// Fills the buffer of a message::kGetText or the like (wParam: its units, lParam: where); answers the units copied.
LResult CopyText(WideStringView text, const Message& message);
// The zero-terminated text that lParam points to; empty for null.
WideString TextParam(const Message& message);

// What displays read of a control beyond its record.
class ListBehaviour : public WindowBehaviour {
 public:
  virtual ListState State(const WindowRecord& window) const = 0;
};
class EditBehaviour : public WindowBehaviour {
 public:
  virtual EditState State(const WindowRecord& window) const = 0;
};
class PickerBehaviour : public WindowBehaviour {
 public:
  virtual PickerState State() const = 0;
};
class ButtonBehaviour : public WindowBehaviour {
 public:
  virtual ButtonState State(const WindowRecord& window) const = 0;
};
class ComboBehaviour : public WindowBehaviour {
 public:
  virtual std::vector<WideString> Lines() const = 0;
};
class ProgressBehaviour : public WindowBehaviour {
 public:
  virtual ProgressState State() const = 0;
};

std::unique_ptr<WindowBehaviour> MakeStaticText();
std::unique_ptr<ButtonBehaviour> MakeButton();
std::unique_ptr<ListBehaviour> MakeListBox();
std::unique_ptr<EditBehaviour> MakeEditField();
std::unique_ptr<ComboBehaviour> MakeComboBox();
std::unique_ptr<PickerBehaviour> MakeDateTimePicker();
std::unique_ptr<ProgressBehaviour> MakeProgressBar();
std::unique_ptr<WindowBehaviour> MakeDialogBehaviour();

}  // namespace platform::host
