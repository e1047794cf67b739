// Windows: made, asked, moved, shown and destroyed.
#include "platform/win32/window_procedure.h"

namespace platform {

using win32::FromApi;
using win32::ToApi;

static_assert(sizeof(Message::wParam) == sizeof(WPARAM) && sizeof(LResult) == sizeof(LRESULT));
static_assert(sizeof(NotifyHeader) == sizeof(NMHDR) && offsetof(NotifyHeader, code) == offsetof(NMHDR, code));
static_assert(kUseDefault == CW_USEDEFAULT);

WindowHandle MakeWindow(const WindowSpec& spec) {
  const WideString className(spec.className);
  const WideString text(spec.text);
  const bool isChild = (spec.style & style::kChild) != 0;
  const auto childId = reinterpret_cast<HMENU>(static_cast<INT_PTR>(spec.id));
  return FromApi(CreateWindowExW(spec.extendedStyle, ToApi(className), ToApi(text), spec.style, spec.x, spec.y,
                                 spec.width, spec.height, ToApi(spec.parent), isChild ? childId : nullptr,
                                 GetModuleHandleW(nullptr), nullptr));
}

void Destroy(WindowHandle window) { DestroyWindow(ToApi(window)); }

LResult DefaultHandling(WindowHandle window, const Message& message) {
  return window == nullptr ? 0 : win32::AskOwnProcedure(ToApi(window), message);
}

struct Subclass::State {
  HWND window = nullptr;
  std::shared_ptr<win32::HandlerLink> link;
};

Subclass::Subclass(WindowHandle window, MessageHandler& handler)
    : state_(std::make_unique<State>(ToApi(window), win32::PutInFront(ToApi(window), handler))) {}

Subclass::~Subclass() { win32::TakeOut(state_->window, state_->link); }

LResult Subclass::CallPrevious(const Message& message) {
  return state_->link ? win32::AskFrom(state_->link->previous, state_->window, message) : 0;
}

LResult Send(WindowHandle window, std::uint32_t id, WParam wParam, LParam lParam) {
  return SendMessageW(ToApi(window), id, wParam, lParam);
}

void Post(WindowHandle window, std::uint32_t id, WParam wParam, LParam lParam) {
  if (window != nullptr) PostMessageW(ToApi(window), id, wParam, lParam);
}

void PostQuit(int exitCode) { PostQuitMessage(exitCode); }

WideString TextOf(WindowHandle window) {
  const int length = GetWindowTextLengthW(ToApi(window));
  if (length <= 0) return {};
  WideString text(static_cast<std::size_t>(length) + 1, u'\0');
  const int copied = GetWindowTextW(ToApi(window), ToApi(text), length + 1);
  text.resize(static_cast<std::size_t>(copied));
  return text;
}

void SetText(WindowHandle window, WideStringView text) { SetWindowTextW(ToApi(window), ToApi(WideString(text))); }

void Show(WindowHandle window) { ShowWindow(ToApi(window), SW_SHOW); }
void Hide(WindowHandle window) { ShowWindow(ToApi(window), SW_HIDE); }
bool IsVisible(WindowHandle window) { return IsWindowVisible(ToApi(window)) != 0; }
void Enable(WindowHandle window, bool enabled) { EnableWindow(ToApi(window), enabled); }
bool IsEnabled(WindowHandle window) { return IsWindowEnabled(ToApi(window)) != 0; }

Rect ClientRect(WindowHandle window) {
  RECT rect = {};
  GetClientRect(ToApi(window), &rect);
  return FromApi(rect);
}

Rect WindowRect(WindowHandle window) {
  RECT rect = {};
  GetWindowRect(ToApi(window), &rect);
  return FromApi(rect);
}

Rect RectInParent(WindowHandle window) {
  RECT rect = ToApi(WindowRect(window));
  const bool isChild = (StyleOf(window) & style::kChild) != 0;
  if (isChild) MapWindowPoints(nullptr, GetParent(ToApi(window)), reinterpret_cast<POINT*>(&rect), 2);
  return FromApi(rect);
}

void Move(WindowHandle window, const Rect& rectInParent) {
  MoveWindow(ToApi(window), rectInParent.left, rectInParent.top, rectInParent.Width(), rectInParent.Height(), TRUE);
}

void Invalidate(WindowHandle window) {
  // No window means every window to the system.
  if (window != nullptr) InvalidateRect(ToApi(window), nullptr, TRUE);
}

void Update(WindowHandle window) { UpdateWindow(ToApi(window)); }

void Focus(WindowHandle window) {
  // No window would take the focus from all.
  if (window != nullptr) SetFocus(ToApi(window));
}

WindowHandle FocusedWindow() { return FromApi(GetFocus()); }
WindowHandle ActiveWindow() { return FromApi(GetActiveWindow()); }

void Activate(WindowHandle window) {
  if (window != nullptr) SetActiveWindow(ToApi(window));
}

void BringToForeground(WindowHandle window) { SetForegroundWindow(ToApi(window)); }

WindowHandle ParentOf(WindowHandle window) { return FromApi(GetParent(ToApi(window))); }
WindowHandle ControlOf(WindowHandle dialog, int id) { return FromApi(GetDlgItem(ToApi(dialog), id)); }
int IdOf(WindowHandle window) { return GetDlgCtrlID(ToApi(window)); }
style::Bits StyleOf(WindowHandle window) { return static_cast<style::Bits>(GetWindowLongW(ToApi(window), GWL_STYLE)); }
void SetStyle(WindowHandle window, style::Bits style) {
  SetWindowLongW(ToApi(window), GWL_STYLE, static_cast<LONG>(style));
}

namespace {

BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
  FromParam<std::vector<WindowHandle>>(static_cast<LParam>(list))->push_back(FromApi(window));
  return TRUE;
}

}  // namespace

std::vector<WindowHandle> TopLevelWindows() {
  std::vector<WindowHandle> windows;
  EnumWindows(AddWindow, ToLParam(&windows));
  return windows;
}

}  // namespace platform
