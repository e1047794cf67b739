#include "simulator/windows/driver/window_reader.h"

#include "platform/win32/windows_api.h"

#include <commctrl.h>

#include <algorithm>

namespace simulator {
namespace {

using platform::win32::FromApi;
using platform::win32::ToApi;
using Kind = ControlPicture::Kind;

const struct {
  WideStringView className;
  Kind kind;
} kClasses[] = {
    {u"Static", Kind::kStatic},
    {u"Button", Kind::kButton},
    {u"Edit", Kind::kEdit},
    {u"ListBox", Kind::kList},
    {u"ComboBox", Kind::kCombo},
    {u"SysDateTimePick32", Kind::kPicker},
    {u"RNA_IPAddress", Kind::kAddress},
    {u"msctls_progress32", Kind::kProgress},
    {u"KEL_ScrollBarClass", Kind::kScrollBar},
};

Kind KindOf(HWND window) {
  wchar_t name[256] = {};
  const int length = GetClassNameW(window, name, 256);
  const WideStringView className(FromApi(name), static_cast<std::size_t>(length));
  for (const auto& entry : kClasses) {
    if (base::EqualsIgnoringCase(entry.className, className)) return entry.kind;
  }
  return Kind::kOther;
}

int Ask(HWND window, UINT message, WPARAM wParam = 0) {
  return static_cast<int>(SendMessageW(window, message, wParam, 0));
}

WideString TextOf(HWND window) {
  const int length = Ask(window, WM_GETTEXTLENGTH);
  if (length <= 0) return {};
  const auto units = static_cast<std::size_t>(length) + 1;
  WideString text(units, u'\0');
  const LRESULT copied = SendMessageW(window, WM_GETTEXT, units, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

WideString LineOf(HWND list, int index) {
  const auto line = static_cast<WPARAM>(index);
  const int length = Ask(list, LB_GETTEXTLEN, line);
  if (length <= 0) return {};
  WideString text(static_cast<std::size_t>(length) + 1, u'\0');
  SendMessageW(list, LB_GETTEXT, line, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

std::vector<HWND> ChildrenOf(HWND window) {
  std::vector<HWND> children;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    children.push_back(child);
  }
  return children;
}

void FillEdit(HWND edit, ControlPicture& picture) {
  const auto hidden = static_cast<char16_t>(Ask(edit, EM_GETPASSWORDCHAR));
  // Another process is not shown a password, only how long it is.
  if (hidden != 0) picture.text.assign(static_cast<std::size_t>(Ask(edit, WM_GETTEXTLENGTH)), hidden);
  const LRESULT selection = SendMessageW(edit, EM_GETSEL, 0, 0);
  picture.selectionStart = LOWORD(selection);
  picture.selectionEnd = HIWORD(selection);
  const bool severalLines = (GetWindowLongW(edit, GWL_STYLE) & ES_MULTILINE) != 0;
  picture.top = severalLines ? Ask(edit, EM_GETFIRSTVISIBLELINE) : 0;
}

void FillList(HWND list, ControlPicture& picture) {
  for (int i = 0, count = Ask(list, LB_GETCOUNT); i < count; ++i) picture.lines.push_back(LineOf(list, i));
  picture.top = Ask(list, LB_GETTOPINDEX);
  picture.selected = Ask(list, LB_GETCURSEL);
}

// The system's own message box is known by the id of its text. Wine's has an empty place for an icon, and calls its
// only button OK, not Cancel; Windows' has and does not.
constexpr int kMessageTextId = 65535;
constexpr int kWineIconId = 1088;

bool IsSystemMessage(HWND window) { return GetDlgItem(window, kMessageTextId) != nullptr; }

int IdOf(HWND control) {
  const int id = GetDlgCtrlID(control);
  return id == IDOK && IsSystemMessage(GetParent(control)) ? IDCANCEL : id;
}

bool IsShown(HWND control) {
  if (!IsWindowVisible(control)) return false;
  return GetDlgCtrlID(control) != kWineIconId || !IsSystemMessage(GetParent(control));
}

// Wine shows a month's short name and tells the long one, with a mark behind it, when it is asked for the text.
WideString PickerText(WideString text) {
  constexpr WideStringView kMark = u".3s";
  constexpr std::size_t kShortName = 3;
  const std::size_t mark = text.find(kMark);
  if (mark == WideString::npos) return text;
  const std::size_t before = text.find_last_of(u" ,", mark);
  const std::size_t name = before == WideString::npos ? 0 : before + 1;
  return text.erase(name + kShortName, mark + kMark.size() - name - kShortName);
}

ControlPicture TakeControl(HWND window) {
  ControlPicture picture;
  picture.kind = KindOf(window);
  picture.id = IdOf(window);
  picture.enabled = IsWindowEnabled(window) != 0;
  picture.text = TextOf(window);
  switch (picture.kind) {
    case Kind::kButton: picture.checked = Ask(window, BM_GETCHECK) == BST_CHECKED; break;
    case Kind::kEdit: FillEdit(window, picture); break;
    case Kind::kList: FillList(window, picture); break;
    case Kind::kPicker: picture.text = PickerText(std::move(picture.text)); break;
    case Kind::kProgress: picture.position = Ask(window, PBM_GETPOS); break;
    case Kind::kAddress:
      for (const HWND field : ChildrenOf(window)) picture.lines.push_back(TextOf(field));
      break;
    default: break;
  }
  return picture;
}

std::optional<FocusPicture> TakeFocus(HWND focused) {
  if (focused == nullptr) return std::nullopt;
  if ((GetWindowLongW(focused, GWL_STYLE) & WS_CHILD) == 0) return FocusPicture{true, 0, 0};
  const HWND parent = GetParent(focused);
  if (KindOf(parent) != Kind::kAddress) return FocusPicture{false, IdOf(focused), 0};
  const std::vector<HWND> fields = ChildrenOf(parent);
  const auto place = std::find(fields.begin(), fields.end(), focused) - fields.begin();
  return FocusPicture{false, GetDlgCtrlID(parent), static_cast<int>(place) + 1};
}

}  // namespace

std::vector<HWND> VisibleWindowsOf(DWORD processId) {
  std::vector<HWND> windows;
  EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&windows));
  const auto isOther = [processId](HWND window) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner != processId || !IsWindowVisible(window);
  };
  windows.erase(std::remove_if(windows.begin(), windows.end(), isOther), windows.end());
  return windows;
}

GUITHREADINFO ThreadState(DWORD threadId) {
  GUITHREADINFO state = {};
  state.cbSize = sizeof state;
  GetGUIThreadInfo(threadId, &state);
  return state;
}

ScreenPicture TakeScreenPicture(DWORD processId, DWORD threadId) {
  ScreenPicture screen;
  std::vector<HWND> windows = VisibleWindowsOf(processId);
  std::reverse(windows.begin(), windows.end());
  for (const HWND window : windows) {
    WindowPicture picture{TextOf(window), IsWindowEnabled(window) != 0, {}};
    for (const HWND child : ChildrenOf(window)) {
      if (IsShown(child)) picture.controls.push_back(TakeControl(child));
    }
    screen.windows.push_back(std::move(picture));
  }
  screen.focus = TakeFocus(ThreadState(threadId).hwndFocus);
  return screen;
}

}  // namespace simulator
