#include "platform/host/desktop.h"

#include "platform/host/dispatch.h"
#include "platform/host/plain_window.h"
#include "platform/host/session.h"

#include <algorithm>

namespace platform::host {

namespace {

// The behaviour of a window of one kind, or null.
template <typename Behaviour>
const Behaviour* BehaviourAs(WindowHandle window, WindowKind kind) {
  const auto record = Find(window);
  return record && record->kind == kind ? static_cast<const Behaviour*>(record->behaviour.get()) : nullptr;
}

bool IsForeign(WindowHandle window) {
  const std::vector<WindowHandle>& foreign = CurrentSession().foreign;
  return window != nullptr && std::find(foreign.begin(), foreign.end(), window) != foreign.end();
}

}  // namespace

WindowKind KindOf(WindowHandle window) {
  if (const auto record = Find(window)) return record->kind;
  return IsForeign(window) ? WindowKind::kForeign : WindowKind::kNone;
}

WideString ClassOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->className : WideString();
}

bool IsWindow(WindowHandle window) { return KindOf(window) != WindowKind::kNone; }

std::vector<WindowHandle> TopLevelFromBottom() { return CurrentSession().topLevels; }

std::vector<WindowHandle> ChildrenOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->children : std::vector<WindowHandle>();
}

WindowHandle OwnerOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->owner : nullptr;
}

style::Bits ExtendedStyleOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->extendedStyle : 0;
}

bool HasVisibleStyle(WindowHandle window) {
  const auto record = Find(window);
  return record && record->Has(style::kVisible);
}

Rect ClientRectOnScreen(WindowHandle window) {
  const auto record = Find(window);
  if (!record) return {};
  const FrameWidths frame = FrameOf(record->style, record->extendedStyle);
  const Rect client = record->ClientArea();
  int left = record->rect.left + frame.side;
  int top = record->rect.top + frame.top;
  for (auto parent = Find(record->parent); parent; parent = Find(parent->parent)) {
    const FrameWidths outer = FrameOf(parent->style, parent->extendedStyle);
    left += parent->rect.left + outer.side;
    top += parent->rect.top + outer.top;
  }
  return {left, top, left + client.Width(), top + client.Height()};
}

std::optional<ListState> ListStateOf(WindowHandle window) {
  const auto* list = BehaviourAs<ListBehaviour>(window, WindowKind::kListBox);
  if (list == nullptr) return std::nullopt;
  return list->State(*Find(window));
}

std::optional<EditState> EditStateOf(WindowHandle window) {
  const auto* edit = BehaviourAs<EditBehaviour>(window, WindowKind::kEdit);
  if (edit == nullptr) return std::nullopt;
  return edit->State(*Find(window));
}

std::optional<PickerState> PickerStateOf(WindowHandle window) {
  const auto* picker = BehaviourAs<PickerBehaviour>(window, WindowKind::kDateTimePicker);
  if (picker == nullptr) return std::nullopt;
  return picker->State();
}

std::optional<ButtonState> ButtonStateOf(WindowHandle window) {
  const auto* button = BehaviourAs<ButtonBehaviour>(window, WindowKind::kButton);
  if (button == nullptr) return std::nullopt;
  return button->State(*Find(window));
}

std::optional<std::vector<WideString>> ComboLinesOf(WindowHandle window) {
  const auto* combo = BehaviourAs<ComboBehaviour>(window, WindowKind::kComboBox);
  if (combo == nullptr) return std::nullopt;
  return combo->Lines();
}

std::optional<ProgressState> ProgressStateOf(WindowHandle window) {
  const auto* progress = BehaviourAs<ProgressBehaviour>(window, WindowKind::kProgressBar);
  if (progress == nullptr) return std::nullopt;
  return progress->State();
}

std::vector<Drawing> DrawingsOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->drawings : std::vector<Drawing>();
}

std::optional<ControlColors> ControlColorsOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->colors : std::nullopt;
}

FontState FontOf(WindowHandle window) {
  const auto record = Find(window);
  const Font& font = record ? record->FontInUse() : SystemFont();
  return {font.face, font.heightPx, font.weight, font.metrics->heightPx};
}

int TextWidthIn(WindowHandle window, WideStringView text) {
  const auto record = Find(window);
  return WidthOf(record ? record->FontInUse() : SystemFont(), text);
}

bool IsWaitCursorShown() { return CurrentSession().waitCursors > 0; }

bool IsIdle() {
  const MessageQueue& queue = CurrentSession().queue;
  return !queue.AreThreadsRunning() && !queue.HasPosted() && !queue.HasKeys() && !IsPaintDue();
}

bool AreThreadsRunning() { return CurrentSession().queue.AreThreadsRunning(); }

bool AreMessagesWaiting() { return CurrentSession().queue.HasPosted(); }

}  // namespace platform::host
