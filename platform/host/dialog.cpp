// Modal dialogs: making them from tables, their loops and their end.
#include "platform/dialog.h"

#include "platform/host/dialog_keys.h"
#include "platform/host/dialog_window.h"
#include "platform/host/dispatch.h"
#include "platform/host/focus.h"
#include "platform/host/plain_window.h"
#include "platform/host/window_tree.h"

#include <algorithm>

namespace platform {

using namespace host;

namespace {

constexpr int kMargin = 3;  // kept between a dialog and the right and bottom edges of the screen

// Rounds to the nearest, halves away from zero.
int Scale(int units, int base, int divisor) {
  const int product = units * base;
  return (product + (product < 0 ? -divisor : divisor) / 2) / divisor;
}

struct DialogUnits {
  const Font* font;
  int X(int units) const { return Scale(units, font->metrics->dialogUnitX, 4); }
  int Y(int units) const { return Scale(units, font->metrics->heightPx, 8); }
};

DialogUnits UnitsOf(const DialogTemplate& dialog) {
  return {dialog.fontFace.empty() ? &SystemFont() : &FontForPoints(dialog.fontFace, dialog.fontPoints)};
}

// The place is in the owner's client area, or on the screen; the dialog is moved so that it is seen whole if it can.
Rect PlaceOf(const DialogTemplate& dialog, const DialogUnits& units, const WindowRecord& window) {
  const FrameWidths frame = FrameOf(window.style, window.extendedStyle);
  const Environment& environment = CurrentEnvironment();
  const Rect owner = window.owner != nullptr ? ClientRectOnScreen(window.owner) : Rect{};
  const int width = units.X(dialog.width) + 2 * frame.side;
  const int height = units.Y(dialog.height) + frame.top + frame.side;
  int left = owner.left + units.X(dialog.x) - frame.side;
  int top = owner.top + units.Y(dialog.y) - frame.top;
  left = std::max(0, std::min(left, environment.screenWidthPx - width - kMargin));
  top = std::max(0, std::min(top, environment.screenHeightPx - height - kMargin));
  return {left, top, left + width, top + height};
}

bool MakeControls(const DialogTemplate& dialog, const DialogUnits& units, WindowHandle window) {
  for (const DialogControl& control : dialog.controls) {
    WindowSpec spec;
    spec.className = control.className;
    spec.text = control.text;
    spec.style = control.style | style::kChild;
    spec.x = units.X(control.x);
    spec.y = units.Y(control.y);
    spec.width = units.X(control.width);
    spec.height = units.Y(control.height);
    spec.parent = window;
    spec.id = control.id;
    const WindowHandle made = MakeWindow(spec);
    if (made == nullptr) return false;
    Send(made, message::kSetFont, ToWParam(units.font), 0);
    const auto record = Find(window);
    if (!record) return false;
    if ((Send(made, message::kGetDialogCode) & kDialogCodeDefaultButton) != 0)
      DialogWindow::Of(*record)->defaultId = control.id;
  }
  return true;
}

void Initialise(WindowHandle dialog) {
  const auto record = Find(dialog);
  const LResult wantsFocus = Send(dialog, message::kInitDialog, ToWParam(FirstControl(dialog)));
  if (wantsFocus == 0 || !Find(dialog)) return;
  if (DialogWindow::Of(*record)->ended) return;
  const WindowHandle first = FirstControl(dialog);
  if (first != nullptr) {
    DialogWindow::FocusControl(first);
  } else {
    Focus(dialog);
  }
}

// Until the dialog has ended, is gone, or the program quits.
void RunLoop(WindowRecord& window) {
  const WindowHandle dialog = window.handle;
  const DialogWindow& state = *DialogWindow::Of(window);
  bool shown = window.Has(style::kVisible);
  const auto showWhenIdle = [&] {
    if (shown) return;
    shown = true;
    Show(dialog);
  };
  while (!state.ended && Find(dialog)) {
    const QueuedMessage queued = NextMessage(showWhenIdle);
    if (queued.message.id == message::kQuit && queued.window == nullptr) {
      PostQuit(static_cast<int>(queued.message.wParam));
      return;
    }
    if (HandleDialogMessage(dialog, queued)) continue;
    TranslateKey(queued);
    Send(queued.window, queued.message.id, queued.message.wParam, queued.message.lParam);
  }
}

// The handler's silence about the first message means that the first control is to have the focus.
class InitDialogDefault : public MessageHandler {
 public:
  explicit InitDialogDefault(MessageHandler& handler) : handler_(handler) {}
  std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
    const auto answer = handler_.OnMessage(window, message);
    if (!answer && message.id == message::kInitDialog) return 1;
    return answer;
  }

 private:
  MessageHandler& handler_;
};

}  // namespace

LResult RunDialog(const DialogTemplate& dialogTemplate, WindowHandle owner, MessageHandler& handler) {
  if (CurrentSession().queue.IsResetting()) return 0;
  const WindowHandle root = RootOf(owner);
  const bool disablesOwner = root != nullptr && IsEnabled(root);
  if (disablesOwner) Enable(root, false);

  WindowSpec spec;
  spec.text = dialogTemplate.caption;
  spec.style = dialogTemplate.style & ~(style::kVisible | style::kChild);
  if ((dialogTemplate.style & style::kDialogModalFrame) != 0) spec.extendedStyle = style::kExtendedModalFrame;
  spec.parent = root;
  const auto record = AddRecord(WindowKind::kDialog, spec);
  const WindowHandle dialog = record->handle;
  const DialogUnits units = UnitsOf(dialogTemplate);
  InitDialogDefault withDefault(handler);
  record->className = kDialogClass;
  record->rect = PlaceOf(dialogTemplate, units, *record);
  record->dialogHandler = &withDefault;
  DialogWindow& state = *DialogWindow::Of(*record);

  Send(dialog, message::kSetFont, ToWParam(units.font), 0);
  LResult result = -1;
  if (MakeControls(dialogTemplate, units, dialog)) {
    Initialise(dialog);
    if (Find(dialog) && !state.ended && (dialogTemplate.style & style::kVisible) != 0) Show(dialog);
    RunLoop(*record);
    result = state.ended ? state.result : 0;
  }
  // A dialog that did not end by itself leaves its owner as it was found.
  if (disablesOwner && !state.ended) Enable(root, true);
  Destroy(dialog);
  record->dialogHandler = nullptr;
  return result;
}

void EndDialog(WindowHandle dialog, LResult result) {
  const auto record = Find(dialog);
  DialogWindow* const state = record ? DialogWindow::Of(*record) : nullptr;
  if (state == nullptr) return;
  state->ended = true;
  state->result = result;
  const WindowHandle owner = record->owner;
  Enable(owner, true);  // even one that was disabled before
  if (IsInside(dialog, FocusedWindow())) Focus(dialog);
  SetVisibleBit(*record, false);
  if (ActiveWindow() != dialog) return;
  if (owner != nullptr) {
    BringToForeground(owner);
  } else {
    ActivateAnother(dialog);
  }
}

}  // namespace platform
