// What the whole screen and the keypad have to do with it: fonts, keys, sounds, pauses, the system's own box.
#include "platform/controls.h"
#include "platform/win32/windows_api.h"

#include <commctrl.h>

#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace platform {

using win32::ToApi;

namespace {

// The terminal's "System" comes in every size; that of a PC in one, larger than what is asked for.
WideStringView FaceFor(WideStringView face) {
#ifndef UNDER_CE
  if (face == u"System") return u"MS Sans Serif";
#endif
  return face;
}

// The same font for the same request, until the program ends.
HFONT FontFor(const FontSpec& spec) {
  static std::map<std::tuple<WideString, int, int>, HFONT> fonts;
  HFONT& font = fonts[{WideString(spec.face), spec.heightPx, spec.weight}];
  if (font != nullptr) return font;
  LOGFONTW logical = {};
  logical.lfHeight = spec.heightPx;
  logical.lfWeight = spec.weight;
  logical.lfCharSet = DEFAULT_CHARSET;
  FaceFor(spec.face).substr(0, LF_FACESIZE - 1).copy(reinterpret_cast<char16_t*>(logical.lfFaceName), LF_FACESIZE - 1);
  font = CreateFontIndirectW(&logical);
  return font;
}

// A window's context for drawing, with a font of its own if one is given.
class MeasuringContext {
 public:
  explicit MeasuringContext(WindowHandle window, const FontSpec* font = nullptr)
      : window_(ToApi(window)), context_(GetDC(window_)) {
    if (font != nullptr) before_ = SelectObject(context_, FontFor(*font));
  }
  ~MeasuringContext() {
    if (before_ != nullptr) SelectObject(context_, before_);
    ReleaseDC(window_, context_);
  }
  MeasuringContext(const MeasuringContext&) = delete;
  MeasuringContext& operator=(const MeasuringContext&) = delete;

  int WidthOf(WideStringView text) const {
    SIZE size = {};
    GetTextExtentExPointW(context_, ToApi(text.data()), static_cast<int>(text.size()), 0, nullptr, nullptr, &size);
    return static_cast<int>(size.cx);
  }
  int LineHeight() const {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(context_, &metrics);
    return static_cast<int>(metrics.tmHeight);
  }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ before_ = nullptr;
};

}  // namespace

void SetFont(WindowHandle window, const FontSpec& font) {
  SendMessageW(ToApi(window), WM_SETFONT, reinterpret_cast<WPARAM>(FontFor(font)), TRUE);
}

int MeasureText(WindowHandle window, WideStringView text) {
  return window == nullptr ? 0 : MeasuringContext(window).WidthOf(text);
}

int MeasureText(WindowHandle window, WideStringView text, const FontSpec& font) {
  return window == nullptr ? 0 : MeasuringContext(window, &font).WidthOf(text);
}

int LineHeight(WindowHandle window, const FontSpec& font) {
  return window == nullptr ? 0 : MeasuringContext(window, &font).LineHeight();
}

int CaptionHeight() { return GetSystemMetrics(SM_CYCAPTION); }
Rect ScreenRect() { return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}; }
bool IsKeyDown(std::uint16_t virtualKey) { return GetKeyState(virtualKey) < 0; }
void Beep() { MessageBeep(MB_OK); }

void PauseMs(int milliseconds) {
  // A handler that never validates its window would be painted for ever.
  constexpr int kMostPaints = 100;
  MSG message = {};
  for (int i = 0; i < kMostPaints && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE); ++i) {
    DispatchMessageW(&message);
  }
  Sleep(static_cast<DWORD>(milliseconds));
}

void ShowSystemMessage(WideStringView text, WideStringView caption) {
  const WaitCursorPause pause;
  MessageBoxW(nullptr, ToApi(WideString(text)), ToApi(WideString(caption)), MB_OK);
}

void InitDateTimeControls() {
  const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_DATE_CLASSES};
  InitCommonControlsEx(&controls);
}

// Those in force are linked, the latest first.
struct WaitCursor::State {
  HWND window = nullptr;
  HCURSOR cursor = nullptr;  // before this one
  POINT pointer = {};
  State* outer = nullptr;

  void Show();
  void TakeBack() const;

  static State* innermost;
};

WaitCursor::State* WaitCursor::State::innermost = nullptr;

void WaitCursor::State::Show() {
  constexpr LONG kLeftOfMiddlePx = 10;
  cursor = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  GetCursorPos(&pointer);
  RECT client = {};
  GetClientRect(window, &client);
  POINT middle = {client.right / 2 - kLeftOfMiddlePx, client.bottom / 2};
  ClientToScreen(window, &middle);
  SetCursorPos(middle.x, middle.y);
  ShowCursor(TRUE);
}

void WaitCursor::State::TakeBack() const {
  ShowCursor(FALSE);
  SetCursorPos(pointer.x, pointer.y);
  SetCursor(cursor);
}

WaitCursor::WaitCursor(WindowHandle window) : state_(std::make_unique<State>()) {
  state_->window = ToApi(window);
  state_->outer = std::exchange(State::innermost, state_.get());
  state_->Show();
}

WaitCursor::~WaitCursor() {
  state_->TakeBack();
  State::innermost = state_->outer;
}

struct WaitCursorPause::State {
  std::vector<WaitCursor::State*> paused;  // the latest first
};

WaitCursorPause::WaitCursorPause() : state_(std::make_unique<State>()) {
  for (auto* cursor = std::exchange(WaitCursor::State::innermost, nullptr); cursor != nullptr; cursor = cursor->outer) {
    cursor->TakeBack();
    state_->paused.push_back(cursor);
  }
}

WaitCursorPause::~WaitCursorPause() {
  auto& paused = state_->paused;
  for (auto cursor = paused.rbegin(); cursor != paused.rend(); ++cursor) (*cursor)->Show();
  if (!paused.empty()) WaitCursor::State::innermost = paused.front();
}

SystemTime LocalTime() {
  static_assert(sizeof(SystemTime) == sizeof(SYSTEMTIME));
  SYSTEMTIME now = {};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDayOfWeek, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace platform
