// The system's controls. Each type is a window handle with the operations of that control; it owns nothing, and a
// control without a window answers like an empty one.
#pragma once

#include "platform/window.h"

#include <optional>

namespace platform {

class Control {
 public:
  Control() = default;
  explicit Control(WindowHandle window) : window_(window) {}
  WindowHandle Handle() const { return window_; }
  explicit operator bool() const { return window_ != nullptr; }

  void ShowAndEnable() const;
  void HideAndDisable() const;

 private:
  WindowHandle window_ = nullptr;
};

class ListBox : public Control {
 public:
  using Control::Control;

  int Add(WideStringView line) const;  // the new line's index
  void Insert(int index, WideStringView line) const;
  void Remove(int index) const;
  void Clear() const;
  int Count() const;
  WideString Line(int index) const;
  // Keeps the line's data; the selection and the top line stay as they are.
  void ReplaceLine(int index, WideStringView line) const;

  // Null for a line without data, and beyond the last line.
  template <typename T>
  T* Data(int index) const {
    return FromParam<T>(DataParam(index));
  }
  template <typename T>
  void SetData(int index, T* data) const {
    SetDataParam(index, ToLParam(data));
  }

  int Selected() const;  // -1: none
  void Select(int index) const;
  int Top() const;
  void SetTop(int index) const;
  int ItemHeight() const;  // pixels
  void SetItemHeight(int heightPx) const;

 private:
  LParam DataParam(int index) const;
  void SetDataParam(int index, LParam data) const;
};

class EditField : public Control {
 public:
  using Control::Control;

  struct Selection {
    int start = 0;
    int end = 0;
    bool operator==(const Selection&) const = default;
  };
  Selection GetSelection() const;
  void Select(int start, int end) const;  // 0, -1: everything
  void ReplaceSelection(WideStringView text) const;
  void LimitText(int characters) const;  // of typing; 0: no limit
  void SetReadOnly(bool readOnly) const;
  int LineCount() const;
  int FirstVisibleLine() const;
  void ScrollLines(int lines) const;
  void ScrollPage(bool down) const;  // the caret stays where it is
};

class Button : public Control {
 public:
  using Control::Control;
  bool IsChecked() const;
  void SetChecked(bool checked) const;
};

class ComboBox : public Control {
 public:
  using Control::Control;
  int Add(WideStringView line) const;
  int Selected() const;
  void Select(int index) const;
  WideString Line(int index) const;
};

// The layout of Windows' SYSTEMTIME, which the picker's messages carry.
struct SystemTime {
  std::uint16_t year = 0, month = 0, dayOfWeek = 0, day = 0, hour = 0, minute = 0, second = 0, milliseconds = 0;
  bool operator==(const SystemTime&) const = default;
};
SystemTime LocalTime();

class DateTimePicker : public Control {
 public:
  using Control::Control;
  void SetFormat(WideStringView format) const;
  SystemTime Time() const;
  bool SetTime(const SystemTime& time) const;  // false, and no change, when it is no date
};

}  // namespace platform
