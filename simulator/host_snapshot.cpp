#include "simulator/host_snapshot.h"

#include "platform/host/desktop.h"

namespace simulator {
namespace {

namespace host = platform::host;
using platform::WindowHandle;
using Kind = ControlPicture::Kind;

constexpr WideStringView kAddressClass = u"RNA_IPAddress";
constexpr WideStringView kScrollBarClass = u"KEL_ScrollBarClass";

Kind CustomKind(WindowHandle window) {
  const WideString name = host::ClassOf(window);
  if (base::EqualsIgnoringCase(name, kAddressClass)) return Kind::kAddress;
  return base::EqualsIgnoringCase(name, kScrollBarClass) ? Kind::kScrollBar : Kind::kOther;
}

void FillList(WindowHandle window, ControlPicture& picture) {
  auto state = host::ListStateOf(window).value_or(host::ListState{});
  picture.lines = std::move(state.lines);
  picture.top = state.top;
  picture.selected = state.selected;
}

void FillEdit(WindowHandle window, ControlPicture& picture) {
  auto state = host::EditStateOf(window).value_or(host::EditState{});
  picture.text = state.passwordChar == 0 ? std::move(state.text) : WideString(state.text.size(), state.passwordChar);
  picture.selectionStart = state.selectionStart;
  picture.selectionEnd = state.selectionEnd;
  picture.top = state.multiLine ? state.firstVisibleLine : 0;
}

void FillAddress(WindowHandle window, ControlPicture& picture) {
  for (const WindowHandle field : host::ChildrenOf(window)) picture.lines.push_back(platform::TextOf(field));
}

ControlPicture TakeControl(WindowHandle window) {
  ControlPicture picture;
  picture.id = platform::IdOf(window);
  picture.enabled = platform::IsEnabled(window);
  picture.text = platform::TextOf(window);
  switch (host::KindOf(window)) {
    case host::WindowKind::kStatic: picture.kind = Kind::kStatic; break;
    case host::WindowKind::kButton:
      picture.kind = Kind::kButton;
      picture.checked = host::ButtonStateOf(window).value_or(host::ButtonState{}).checked;
      break;
    case host::WindowKind::kListBox:
      picture.kind = Kind::kList;
      FillList(window, picture);
      break;
    case host::WindowKind::kEdit:
      picture.kind = Kind::kEdit;
      FillEdit(window, picture);
      break;
    case host::WindowKind::kComboBox: picture.kind = Kind::kCombo; break;
    case host::WindowKind::kDateTimePicker:
      picture.kind = Kind::kPicker;
      picture.text = host::PickerStateOf(window).value_or(host::PickerState{}).shown;
      break;
    case host::WindowKind::kProgressBar:
      picture.kind = Kind::kProgress;
      picture.position = host::ProgressStateOf(window).value_or(host::ProgressState{}).position;
      break;
    default:
      picture.kind = CustomKind(window);
      if (picture.kind == Kind::kAddress) FillAddress(window, picture);
  }
  return picture;
}

bool IsTopLevel(WindowHandle window) { return (platform::StyleOf(window) & platform::style::kChild) == 0; }

std::optional<FocusPicture> TakeFocus() {
  const WindowHandle focused = platform::FocusedWindow();
  if (focused == nullptr) return std::nullopt;
  if (IsTopLevel(focused)) return FocusPicture{true, 0, 0};
  const WindowHandle parent = platform::ParentOf(focused);
  if (CustomKind(parent) != Kind::kAddress) return FocusPicture{false, platform::IdOf(focused), 0};
  int field = 0;
  for (const WindowHandle child : host::ChildrenOf(parent)) {
    ++field;
    if (child == focused) break;
  }
  return FocusPicture{false, platform::IdOf(parent), field};
}

}  // namespace

ScreenPicture TakeScreenPicture() {
  ScreenPicture screen;
  for (const WindowHandle window : host::TopLevelFromBottom()) {
    if (!platform::IsVisible(window)) continue;
    WindowPicture picture{platform::TextOf(window), platform::IsEnabled(window), {}};
    for (const WindowHandle child : host::ChildrenOf(window)) {
      if (platform::IsVisible(child)) picture.controls.push_back(TakeControl(child));
    }
    screen.windows.push_back(std::move(picture));
  }
  screen.focus = TakeFocus();
  return screen;
}

}  // namespace simulator
