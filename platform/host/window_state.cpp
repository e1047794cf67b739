// The state of one window: text, place, shown or hidden, enabled or not.
#include "platform/host/focus.h"
#include "platform/host/window_tree.h"

#include <algorithm>

namespace platform {

using namespace host;

WideString TextOf(WindowHandle window) {
  Session& session = CurrentSession();
  const auto foreign = std::find(session.foreign.begin(), session.foreign.end(), window);
  if (window != nullptr && foreign != session.foreign.end())
    return session.environment.otherWindows[static_cast<std::size_t>(foreign - session.foreign.begin())];
  const auto length = static_cast<std::size_t>(Send(window, message::kGetTextLength));
  WideString text(length + 1, u'\0');
  const LResult copied = Send(window, message::kGetText, text.size(), ToLParam(text.data()));
  text.resize(std::min(static_cast<std::size_t>(std::max<LResult>(copied, 0)), length));
  return text;
}

void SetText(WindowHandle window, WideStringView text) {
  const WideString terminated(text.substr(0, text.find(u'\0')));
  Send(window, message::kSetText, 0, ToLParam(terminated.c_str()));
}

void Show(WindowHandle window) {
  const auto record = Find(window);
  if (!record || record->Has(style::kVisible)) return;
  Send(window, message::kShowWindow, 1);
  if (!Find(window)) return;
  SetVisibleBit(*record, true);
  RaiseToTop(window);
  if (!record->Has(style::kDisabled)) SetActive(window);
}

void Hide(WindowHandle window) {
  const auto record = Find(window);
  if (!record || !record->Has(style::kVisible)) return;
  Send(window, message::kShowWindow, 0);
  if (!Find(window)) return;
  SetVisibleBit(*record, false);
  Session& session = CurrentSession();
  if (session.active == window) ActivateAnother(window);
  if (session.focused == window) {
    session.focused == record->parent ? void() : Focus(record->parent);
    if (session.focused == window) session.focused = nullptr;
  }
}

bool IsVisible(WindowHandle window) {
  auto record = Find(window);
  if (!record) return false;
  while (record->Has(style::kVisible)) {
    if (!record->IsChild()) return true;
    record = Find(record->parent);
    if (!record) return false;
  }
  return false;
}

void Enable(WindowHandle window, bool enabled) {
  const auto record = Find(window);
  if (!record || enabled == !record->Has(style::kDisabled)) return;
  if (enabled) {
    record->style &= ~style::kDisabled;
  } else {
    record->style |= style::kDisabled;
    // A disabled window cannot have the focus, and nobody else gets it.
    if (CurrentSession().focused == window) {
      CurrentSession().focused = nullptr;
      Send(window, message::kKillFocus);
    }
  }
  Invalidate(window);
  Send(window, message::kEnable, enabled ? 1 : 0);
}

bool IsEnabled(WindowHandle window) {
  const auto record = Find(window);
  return record && !record->Has(style::kDisabled);
}

Rect ClientRect(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->ClientArea() : Rect{};
}

Rect WindowRect(WindowHandle window) {
  const auto record = Find(window);
  if (!record) return {};
  Rect rect = record->rect;
  if (record->IsChild()) {
    const Rect client = ClientRectOnScreen(record->parent);
    rect = {rect.left + client.left, rect.top + client.top, rect.right + client.left, rect.bottom + client.top};
  }
  return rect;
}

Rect RectInParent(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->rect : Rect{};
}

void Move(WindowHandle window, const Rect& rectInParent) {
  const auto record = Find(window);
  if (!record) return;
  const Rect before = record->rect;
  record->rect = {rectInParent.left, rectInParent.top, std::max(rectInParent.left, rectInParent.right),
                  std::max(rectInParent.top, rectInParent.bottom)};
  if (record->rect == before) return;
  const Rect& now = record->rect;
  InvalidateTree(window);
  const bool sized = before.Width() != now.Width() || before.Height() != now.Height();
  const Rect client = record->ClientArea();
  if (before.left != now.left || before.top != now.top)
    Send(window, message::kMove, 0, (now.top << 16) | (now.left & 0xFFFF));
  if (sized) Send(window, message::kSize, 0, (client.Height() << 16) | (client.Width() & 0xFFFF));
}

WindowHandle ParentOf(WindowHandle window) {
  const auto record = Find(window);
  if (!record) return nullptr;
  return record->IsChild() ? record->parent : record->owner;
}

WindowHandle ControlOf(WindowHandle dialog, int id) {
  const auto record = Find(dialog);
  if (!record) return nullptr;
  for (const WindowHandle child : record->children) {
    if (IdOf(child) == id) return child;
  }
  return nullptr;
}

int IdOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->id : 0;
}

style::Bits StyleOf(WindowHandle window) {
  const auto record = Find(window);
  return record ? record->style : 0;
}

void SetStyle(WindowHandle window, style::Bits style) {
  if (const auto record = Find(window)) record->style = style;
}

std::vector<WindowHandle> TopLevelWindows() {
  Session& session = CurrentSession();
  std::vector<WindowHandle> windows(session.topLevels.rbegin(), session.topLevels.rend());
  while (session.foreign.size() < session.environment.otherWindows.size()) {
    session.foreign.push_back(FromParam<WindowObject>(static_cast<WParam>(session.nextHandle)));
    session.nextHandle += 4;
  }
  windows.insert(windows.end(), session.foreign.begin(), session.foreign.end());
  return windows;
}

void SetFont(WindowHandle window, const FontSpec& font) {
  Send(window, message::kSetFont, ToWParam(&FontFor(font.face, font.heightPx, font.weight)), 1);
}

int MeasureText(WindowHandle window, WideStringView text) { return Find(window) ? WidthOf(SystemFont(), text) : 0; }
int MeasureText(WindowHandle window, WideStringView text, const FontSpec& font) {
  return Find(window) ? WidthOf(FontFor(font.face, font.heightPx, font.weight), text) : 0;
}

int LineHeight(WindowHandle window, const FontSpec& font) {
  return Find(window) ? FontFor(font.face, font.heightPx, font.weight).metrics->heightPx : 0;
}

int CaptionHeight() { return kCaptionHeightPx; }

Rect ScreenRect() {
  const host::Environment& environment = host::CurrentEnvironment();
  return {0, 0, environment.screenWidthPx, environment.screenHeightPx};
}

}  // namespace platform
