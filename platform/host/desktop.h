// The desktop as it stands: what displays show, scripts dump and tests ask. Read on the thread of the windows, between
// messages; a handle of a window that is gone answers like a null one. Texts, rectangles, styles and states that the
// program itself can ask for are in platform/window.h and platform/controls.h.
#pragma once

#include "platform/canvas.h"
#include "platform/controls.h"
#include "platform/window.h"

#include <optional>
#include <vector>

namespace platform::host {

// What a window is, whatever handlers stand in front of it. Classes that the program registers are kCustom.
enum class WindowKind {
  kNone,  // no such window
  kDialog,
  kStatic,
  kButton,
  kListBox,
  kEdit,
  kComboBox,
  kDateTimePicker,
  kProgressBar,
  kCustom,
  kForeign,  // of another program: a title in TopLevelWindows()
};

WindowKind KindOf(WindowHandle window);
WideString ClassOf(WindowHandle window);  // as registered: "Edit", "#32770" for dialogs, "RNA_IPAddress"

// Whether the handle's window still lives; foreign windows do.
bool IsWindow(WindowHandle window);

// This program's own top-level windows from the bottom of the z-order to the top, hidden ones too.
std::vector<WindowHandle> TopLevelFromBottom();
// In order of creation, hidden ones too.
std::vector<WindowHandle> ChildrenOf(WindowHandle window);
WindowHandle OwnerOf(WindowHandle window);
style::Bits ExtendedStyleOf(WindowHandle window);
bool HasVisibleStyle(WindowHandle window);  // its own bit; IsVisible() also asks the parents
// The client area on the screen: inside caption and borders.
Rect ClientRectOnScreen(WindowHandle window);

struct ListState {
  std::vector<WideString> lines;
  int top = 0;
  int selected = -1;
  int itemHeightPx = 0;
  int visibleLines = 0;  // whole lines in the client area
};
std::optional<ListState> ListStateOf(WindowHandle window);

struct EditState {
  WideString text;  // line ends as stored
  int selectionStart = 0;
  int selectionEnd = 0;
  int caret = 0;  // one end of the selection
  bool multiLine = false;
  bool readOnly = false;
  char16_t passwordChar = 0;      // 0: text is shown
  std::vector<WideString> lines;  // as wrapped, without line ends; one line when it is a single-line field
  int firstVisibleLine = 0;
};
std::optional<EditState> EditStateOf(WindowHandle window);

struct PickerState {
  WideString shown;  // the value in the picker's format
  SystemTime time;
  int fieldStart = 0;  // the selected field in `shown`; equal when none is
  int fieldEnd = 0;
  WideString typed;  // digits for that field that are not taken over yet
};
std::optional<PickerState> PickerStateOf(WindowHandle window);

struct ButtonState {
  bool checked = false;
  bool isDefault = false;
};
std::optional<ButtonState> ButtonStateOf(WindowHandle window);

std::optional<std::vector<WideString>> ComboLinesOf(WindowHandle window);

struct ProgressState {
  int position = 0;
  int maximum = 100;
};
std::optional<ProgressState> ProgressStateOf(WindowHandle window);

// What was drawn when a window of the program's own class was last painted; client coordinates.
struct Drawing {
  enum class Kind { kFill, kFrame, kText };
  Kind kind = Kind::kFill;
  Rect rect;        // of kText: only left and top
  Color color;      // the fill, the pen, the text
  Color inside;     // of kFrame
  WideString text;  // of kText
  bool operator==(const Drawing&) const = default;
};
std::vector<Drawing> DrawingsOf(WindowHandle window);

// The colours that the parent gave a control when it was last painted; nothing when it left them to the system.
struct ControlColors {
  Color text = kBlack;
  Color background = kWhite;
  bool operator==(const ControlColors&) const = default;
};
std::optional<ControlColors> ControlColorsOf(WindowHandle window);

struct FontState {
  WideString face;
  int heightPx = 0;  // that was asked for; 0: none
  int weight = 400;
  int linePx = 0;
};
FontState FontOf(WindowHandle window);
int TextWidthIn(WindowHandle window, WideStringView text);  // pixels, in its font

bool IsWaitCursorShown();

// No message waits, no window is to be painted and no platform::Thread runs. Display::NextKey() is only called with
// an empty queue, so what a display still has to wait for is a thread: its end wakes the display.
bool IsIdle();
bool AreThreadsRunning();
// Ask for the threads first: what one has posted before it ended is seen then.
bool AreMessagesWaiting();

}  // namespace platform::host
