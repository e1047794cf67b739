#include "platform/controls.h"

namespace platform {

namespace {

WParam Number(int value) { return static_cast<WParam>(static_cast<LParam>(value)); }

LResult SendText(WindowHandle window, message::Id id, WParam wParam, WideStringView text) {
  const WideString terminated(text);
  return Send(window, id, wParam, ToLParam(terminated.c_str()));
}

// The text of one line of a list, whose length and text are asked by two messages. Empty beyond the last line.
WideString LineOf(WindowHandle window, message::Id lengthMessage, message::Id textMessage, int index) {
  const LResult length = Send(window, lengthMessage, Number(index));
  if (window == nullptr || length <= 0) return {};
  WideString text(static_cast<std::size_t>(length) + 1, u'\0');
  const LResult copied = Send(window, textMessage, Number(index), ToLParam(text.data()));
  text.resize(copied > 0 && copied <= length ? static_cast<std::size_t>(copied) : 0);
  return text;
}

}  // namespace

void Control::ShowAndEnable() const {
  Show(window_);
  Enable(window_, true);
}

void Control::HideAndDisable() const {
  Enable(window_, false);
  Hide(window_);
}

int ListBox::Add(WideStringView line) const {
  return static_cast<int>(SendText(Handle(), message::kListAddString, 0, line));
}

void ListBox::Insert(int index, WideStringView line) const {
  SendText(Handle(), message::kListInsertString, Number(index), line);
}

void ListBox::Remove(int index) const { Send(Handle(), message::kListDeleteString, Number(index)); }

void ListBox::Clear() const { Send(Handle(), message::kListResetContent); }

int ListBox::Count() const { return static_cast<int>(Send(Handle(), message::kListGetCount)); }

WideString ListBox::Line(int index) const {
  return LineOf(Handle(), message::kListGetTextLength, message::kListGetText, index);
}

void ListBox::ReplaceLine(int index, WideStringView line) const {
  if (index < 0 || index >= Count()) return;
  const LParam data = DataParam(index);
  const int selected = Selected();
  const int top = Top();
  Remove(index);
  Insert(index, line);
  SetDataParam(index, data);
  if (Selected() != selected) Select(selected);
  SetTop(top);
}

int ListBox::Selected() const {
  return *this ? static_cast<int>(Send(Handle(), message::kListGetCurrentSelection)) : -1;
}

void ListBox::Select(int index) const { Send(Handle(), message::kListSetCurrentSelection, Number(index)); }

int ListBox::Top() const { return static_cast<int>(Send(Handle(), message::kListGetTopIndex)); }

void ListBox::SetTop(int index) const { Send(Handle(), message::kListSetTopIndex, Number(index)); }

int ListBox::ItemHeight() const { return static_cast<int>(Send(Handle(), message::kListGetItemHeight)); }

void ListBox::SetItemHeight(int heightPx) const { Send(Handle(), message::kListSetItemHeight, 0, heightPx); }

LParam ListBox::DataParam(int index) const {
  // Past the last line the answer is -1, which no line's data is.
  if (index < 0 || index >= Count()) return 0;
  return Send(Handle(), message::kListGetItemData, Number(index));
}

void ListBox::SetDataParam(int index, LParam data) const {
  Send(Handle(), message::kListSetItemData, Number(index), data);
}

EditField::Selection EditField::GetSelection() const {
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  Send(Handle(), message::kEditGetSelection, ToWParam(&start), ToLParam(&end));
  return {static_cast<int>(start), static_cast<int>(end)};
}

void EditField::Select(int start, int end) const { Send(Handle(), message::kEditSetSelection, Number(start), end); }

void EditField::ReplaceSelection(WideStringView text) const {
  SendText(Handle(), message::kEditReplaceSelection, 1, text);
}

void EditField::LimitText(int characters) const { Send(Handle(), message::kEditLimitText, Number(characters)); }

void EditField::SetReadOnly(bool readOnly) const { Send(Handle(), message::kEditSetReadOnly, readOnly ? 1 : 0); }

int EditField::LineCount() const { return static_cast<int>(Send(Handle(), message::kEditGetLineCount)); }

int EditField::FirstVisibleLine() const { return static_cast<int>(Send(Handle(), message::kEditGetFirstVisibleLine)); }

void EditField::ScrollLines(int lines) const { Send(Handle(), message::kEditLineScroll, 0, lines); }
void EditField::ScrollPage(bool down) const {
  Send(Handle(), message::kEditScroll, down ? kScrollPageDown : kScrollPageUp);
}

bool Button::IsChecked() const { return Send(Handle(), message::kButtonGetCheck) != 0; }

void Button::SetChecked(bool checked) const { Send(Handle(), message::kButtonSetCheck, checked ? 1 : 0); }

int ComboBox::Add(WideStringView line) const {
  return static_cast<int>(SendText(Handle(), message::kComboAddString, 0, line));
}

int ComboBox::Selected() const {
  return *this ? static_cast<int>(Send(Handle(), message::kComboGetCurrentSelection)) : -1;
}

void ComboBox::Select(int index) const { Send(Handle(), message::kComboSetCurrentSelection, Number(index)); }

WideString ComboBox::Line(int index) const {
  return LineOf(Handle(), message::kComboGetTextLength, message::kComboGetText, index);
}

void DateTimePicker::SetFormat(WideStringView format) const {
  SendText(Handle(), message::kPickerSetFormat, 0, format);
}

SystemTime DateTimePicker::Time() const {
  SystemTime time;
  Send(Handle(), message::kPickerGetSystemTime, 0, ToLParam(&time));
  return time;
}

bool DateTimePicker::SetTime(const SystemTime& time) const {
  return Send(Handle(), message::kPickerSetSystemTime, 0, ToLParam(&time)) != 0;
}

}  // namespace platform
