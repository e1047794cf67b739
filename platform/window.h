// Windows and messages. One thread, the one that runs the main dialog, makes and uses all windows; only Post() may be
// called from another.
#pragma once

#include "base/wide_string.h"
#include "platform/messages.h"
#include "platform/styles.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

// A window, known by its handle alone. Null: no window; every function here then does nothing and answers 0, false,
// null or the empty text.
class WindowObject;
using WindowHandle = WindowObject*;

using WParam = std::uintptr_t;
using LParam = std::intptr_t;
using LResult = std::intptr_t;

// A message's parameters carry numbers, handles and pointers as integers.
template <typename T>
WParam ToWParam(T* pointer) {
  return reinterpret_cast<WParam>(pointer);
}
template <typename T>
LParam ToLParam(T* pointer) {
  return reinterpret_cast<LParam>(pointer);
}
template <typename T>
T* FromParam(LParam parameter) {
  return reinterpret_cast<T*>(parameter);
}
template <typename T>
T* FromParam(WParam parameter) {
  return reinterpret_cast<T*>(parameter);
}

struct Message {
  std::uint32_t id = 0;
  WParam wParam = 0;
  LParam lParam = 0;
};

// The two halves of a message::kCommand.
inline int CommandId(const Message& message) { return static_cast<std::uint16_t>(message.wParam & 0xFFFF); }
inline int CommandCode(const Message& message) { return static_cast<std::uint16_t>((message.wParam >> 16) & 0xFFFF); }
inline WindowHandle CommandControl(const Message& message) { return FromParam<WindowObject>(message.lParam); }

// What lParam of a message::kNotify points to; laid out as Windows lays it out.
struct NotifyHeader {
  WindowHandle control = nullptr;
  std::uintptr_t id = 0;
  std::int32_t code = 0;
};
inline int NotifyCode(const Message& message) { return FromParam<const NotifyHeader>(message.lParam)->code; }

// Pixels; right and bottom lie outside.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool operator==(const Rect&) const = default;
};

struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

// What a window does with its messages. Nothing returned: the window's own handling follows.
class MessageHandler {
 public:
  virtual ~MessageHandler() = default;
  virtual std::optional<LResult> OnMessage(WindowHandle window, const Message& message) = 0;
};

// How the platform asks a handler. One that fails, for want of memory most likely, has answered 0 and a debug line says
// so: it was called by the system, through which no exception may pass.
std::optional<LResult> AnswerOf(MessageHandler& handler, WindowHandle window, const Message& message);

inline constexpr int kUseDefault = static_cast<int>(0x80000000);  // for the position and size of a top-level window

struct WindowSpec {
  WideStringView className = {};  // "Edit", "Static", "Button", "ListBox", "ComboBox" or a registered class; case-blind
  WideStringView text = {};
  style::Bits style = 0;
  style::Bits extendedStyle = 0;
  int x = 0, y = 0, width = 0, height = 0;  // pixels, in the parent's client area
  WindowHandle parent = nullptr;
  int id = 0;  // of a child
};

// Null when the class is not known or its handler refused message::kCreate with -1.
WindowHandle MakeWindow(const WindowSpec& spec);
void Destroy(WindowHandle window);

// A window of the program's own: `make` is called when a window of the class is made, and its handler lives until
// after the window's last message. Registering a name again does nothing.
struct WindowClassSpec {
  WideStringView name = {};
  bool doubleClicks = false;
  std::function<std::unique_ptr<MessageHandler>(WindowHandle)> make = {};
};
void RegisterWindowClass(const WindowClassSpec& spec);

// The handling that a window of the system's classes, a dialog or a plain window has by itself.
LResult DefaultHandling(WindowHandle window, const Message& message);

// Puts `handler` in front of a window's procedure until the window or this object goes. Several may be stacked; the
// latest comes first.
class Subclass {
 public:
  Subclass(WindowHandle window, MessageHandler& handler);
  ~Subclass();
  Subclass(const Subclass&) = delete;
  Subclass& operator=(const Subclass&) = delete;

  // What the procedure before this one does with the message.
  LResult CallPrevious(const Message& message);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

LResult Send(WindowHandle window, std::uint32_t id, WParam wParam = 0, LParam lParam = 0);
void Post(WindowHandle window, std::uint32_t id, WParam wParam = 0, LParam lParam = 0);

// Ends every modal dialog that is running, each with the result 0.
void PostQuit(int exitCode);

WideString TextOf(WindowHandle window);
void SetText(WindowHandle window, WideStringView text);

void Show(WindowHandle window);
void Hide(WindowHandle window);
bool IsVisible(WindowHandle window);  // itself and all its parents
void Enable(WindowHandle window, bool enabled);
bool IsEnabled(WindowHandle window);

Rect ClientRect(WindowHandle window);  // left and top are 0
Rect WindowRect(WindowHandle window);  // on the screen
Rect RectInParent(WindowHandle window);
void Move(WindowHandle window, const Rect& rectInParent);  // of a top-level window: on the screen
void Invalidate(WindowHandle window);                      // it is painted before the next input is read
void Update(WindowHandle window);                          // it is painted now

void Focus(WindowHandle window);
WindowHandle FocusedWindow();
WindowHandle ActiveWindow();
void Activate(WindowHandle window);
void BringToForeground(WindowHandle window);

WindowHandle ParentOf(WindowHandle window);  // of a dialog: its owner
WindowHandle ControlOf(WindowHandle dialog, int id);
int IdOf(WindowHandle window);
style::Bits StyleOf(WindowHandle window);
void SetStyle(WindowHandle window, style::Bits style);

// All top-level windows on the screen from top to bottom, those of other programs among them. A window of another
// program has a text and can be brought to the foreground, nothing more.
std::vector<WindowHandle> TopLevelWindows();

// height: pixels; weight: 400 normal, 600 and more bold. Fonts live as long as the program.
struct FontSpec {
  WideStringView face = {};
  int heightPx = 0;
  int weight = 400;
};
void SetFont(WindowHandle window, const FontSpec& font);

// The width of a text on one line, in pixels: in the font that a window's canvas starts with, and in one of the others.
int MeasureText(WindowHandle window, WideStringView text);
int MeasureText(WindowHandle window, WideStringView text, const FontSpec& font);
int LineHeight(WindowHandle window, const FontSpec& font);  // pixels

int CaptionHeight();  // pixels
Rect ScreenRect();    // the whole screen, pixels
bool IsKeyDown(std::uint16_t virtualKey);
void Beep();

// Paints what is due and stops the thread for a while.
void PauseMs(int milliseconds);

// The platform's own message box: one OK button, no owner.
void ShowSystemMessage(WideStringView text, WideStringView caption);

// Readies the date and time picker class.
void InitDateTimeControls();

// While it lives the cursor is the wait cursor in the middle of `window`; then pointer and cursor are as before. They
// end in the reverse of the order in which they began, pauses too.
class WaitCursor {
 public:
  explicit WaitCursor(WindowHandle window);
  ~WaitCursor();
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  friend class WaitCursorPause;
  struct State;
  std::unique_ptr<State> state_;
};

// While it lives no wait cursor is shown, whoever set it: something stands that the user is to answer.
class WaitCursorPause {
 public:
  WaitCursorPause();
  ~WaitCursorPause();
  WaitCursorPause(const WaitCursorPause&) = delete;
  WaitCursorPause& operator=(const WaitCursorPause&) = delete;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace platform
