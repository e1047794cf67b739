#include "platform/host/window_tree.h"

#include "platform/host/focus.h"
#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

struct SystemClass {
  WideStringView name;
  WindowKind kind;
};

constexpr SystemClass kSystemClasses[] = {
    {u"Static", WindowKind::kStatic},
    {u"Button", WindowKind::kButton},
    {u"ListBox", WindowKind::kListBox},
    {u"Edit", WindowKind::kEdit},
    {u"ComboBox", WindowKind::kComboBox},
    {u"SysDateTimePick32", WindowKind::kDateTimePicker},
    {u"msctls_progress32", WindowKind::kProgressBar},
};

struct ClassFound {
  WideString name;
  WindowKind kind = WindowKind::kCustom;
  std::function<std::unique_ptr<MessageHandler>(WindowHandle)> make;
};

std::optional<ClassFound> FindClass(WideStringView name) {
  for (const SystemClass& known : kSystemClasses) {
    if (base::EqualsIgnoringCase(known.name, name)) return ClassFound{WideString(known.name), known.kind, {}};
  }
  for (const auto& [registered, make] : CurrentSession().classes) {
    if (base::EqualsIgnoringCase(registered, name)) return ClassFound{registered, WindowKind::kCustom, make};
  }
  return std::nullopt;
}

Rect InitialRect(const WindowSpec& spec) {
  const Environment& environment = CurrentEnvironment();
  const int left = spec.x == kUseDefault ? 0 : spec.x;
  const int top = spec.y == kUseDefault ? 0 : spec.y;
  const bool defaultSize = spec.width == kUseDefault || spec.height == kUseDefault;
  const int width = defaultSize ? environment.screenWidthPx - left : std::max(spec.width, 0);
  const int height = defaultSize ? environment.screenHeightPx - top : std::max(spec.height, 0);
  return {left, top, left + width, top + height};
}

// A window and all below it, parents before their children, or after them.
std::vector<WindowHandle> TreeOf(WindowHandle window, bool parentsFirst) {
  std::vector<WindowHandle> tree;
  std::vector<WindowHandle> pending{window};
  while (!pending.empty()) {
    tree.push_back(pending.back());
    pending.pop_back();
    const auto record = Find(tree.back());
    if (!record) continue;
    if (parentsFirst) {
      pending.insert(pending.end(), record->children.rbegin(), record->children.rend());
    } else {
      pending.insert(pending.end(), record->children.begin(), record->children.end());
    }
  }
  if (!parentsFirst) std::reverse(tree.begin(), tree.end());
  return tree;
}

void Unlink(WindowRecord& record) {
  Session& session = CurrentSession();
  if (const auto parent = Find(record.parent)) std::erase(parent->children, record.handle);
  std::erase(session.topLevels, record.handle);
  if (session.focused == record.handle) session.focused = nullptr;
  if (session.active == record.handle) session.active = nullptr;
  session.queue.Forget(record.handle);
  session.windows.erase(record.handle);
}

// Every window hears of its end before the first one is gone.
void SendDestroy(WindowHandle window) {
  for (const WindowHandle each : TreeOf(window, true)) {
    if (!Find(each)) continue;
    if (CurrentSession().active == each) ActivateAnother(each);
    Send(each, message::kDestroy);
  }
}

void RemoveTree(WindowHandle window) {
  for (const WindowHandle each : TreeOf(window, false)) {
    const auto record = Find(each);
    if (!record) continue;
    Send(each, message::kNonClientDestroy);
    Unlink(*record);
  }
}

std::unique_ptr<WindowBehaviour> BehaviourOf(WindowKind kind) {
  switch (kind) {
    case WindowKind::kDialog: return MakeDialogBehaviour();
    case WindowKind::kStatic: return MakeStaticText();
    case WindowKind::kButton: return MakeButton();
    case WindowKind::kListBox: return MakeListBox();
    case WindowKind::kEdit: return MakeEditField();
    case WindowKind::kComboBox: return MakeComboBox();
    case WindowKind::kDateTimePicker: return MakeDateTimePicker();
    case WindowKind::kProgressBar: return MakeProgressBar();
    case WindowKind::kNone:
    case WindowKind::kCustom:
    case WindowKind::kForeign: break;
  }
  return nullptr;
}

}  // namespace

std::shared_ptr<WindowRecord> AddRecord(WindowKind kind, const WindowSpec& spec) {
  Session& session = CurrentSession();
  auto record = std::make_shared<WindowRecord>();
  record->handle = FromParam<WindowObject>(static_cast<WParam>(session.nextHandle));
  session.nextHandle += 4;
  record->kind = kind;
  record->text = spec.text;
  record->style = spec.style & ~style::kVisible;
  // A top-level window that is no popup always has a caption.
  if ((spec.style & (style::kChild | style::kPopup)) == 0) record->style |= style::kCaption;
  record->extendedStyle = spec.extendedStyle;
  record->rect = InitialRect(spec);
  record->behaviour = BehaviourOf(kind);
  session.windows.emplace(record->handle, record);
  const auto parent = (spec.style & style::kChild) != 0 ? Find(spec.parent) : nullptr;
  if (parent) {
    record->parent = parent->handle;
    record->id = spec.id;
    parent->children.push_back(record->handle);
  } else {
    record->owner = RootOf(spec.parent);
    session.topLevels.push_back(record->handle);
  }
  return record;
}

void SetVisibleBit(WindowRecord& window, bool visible) {
  if (visible) {
    window.style |= style::kVisible;
    InvalidateTree(window.handle);
  } else {
    window.style &= ~style::kVisible;
  }
}

void InvalidateTree(WindowHandle window) {
  for (const WindowHandle each : TreeOf(window, true)) {
    if (const auto record = Find(each)) record->needsPaint = true;
  }
}

}  // namespace platform::host

namespace platform {

using namespace host;

WindowHandle MakeWindow(const WindowSpec& spec) {
  const auto found = FindClass(spec.className);
  if (!found || IsRefused(Use::kMakeWindow)) return nullptr;
  if ((spec.style & style::kChild) != 0 && !Find(spec.parent)) return nullptr;
  const auto record = AddRecord(found->kind, spec);
  const WindowHandle window = record->handle;
  record->className = found->name;
  if (found->make) record->programHandler = found->make(window);
  if (Send(window, message::kCreate) == -1) {
    Destroy(window);
    return nullptr;
  }
  if (!Find(window)) return nullptr;
  const Rect client = record->ClientArea();
  Send(window, message::kSize, 0, (client.Height() << 16) | (client.Width() & 0xFFFF));
  Send(window, message::kMove, 0, (record->rect.top << 16) | (record->rect.left & 0xFFFF));
  if ((spec.style & style::kVisible) != 0) Show(window);
  return Find(window) ? window : nullptr;
}

void Destroy(WindowHandle window) {
  const auto record = Find(window);
  if (!record || record->beingDestroyed) return;
  record->beingDestroyed = true;
  if (record->IsChild()) {
    Hide(window);
  } else {
    SetVisibleBit(*record, false);
  }
  const std::vector<WindowHandle> all = CurrentSession().topLevels;
  for (const WindowHandle each : all) {
    const auto owned = Find(each);
    if (owned && owned->owner == window) Destroy(each);
  }
  SendDestroy(window);
  RemoveTree(window);
}

void RegisterWindowClass(const WindowClassSpec& spec) {
  if (!FindClass(spec.name)) CurrentSession().classes.emplace_back(spec.name, spec.make);
}

}  // namespace platform
