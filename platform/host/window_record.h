// One window as the host keeps it.
#pragma once

#include "platform/host/desktop.h"
#include "platform/host/text_metrics.h"

namespace platform::host {

struct WindowRecord;

// What a window of one of the system's classes does by itself; what it leaves goes to HandlePlainMessage().
class WindowBehaviour {
 public:
  virtual ~WindowBehaviour() = default;
  virtual LResult Handle(WindowRecord& window, const Message& message) = 0;
};

// Handlers in front of a window, the latest first. A link that was taken out keeps its way to those before it, for
// messages that are on their way.
struct SubclassLink {
  MessageHandler* handler = nullptr;
  std::shared_ptr<SubclassLink> previous;
};

struct WindowRecord {
  WindowHandle handle = nullptr;
  WindowKind kind = WindowKind::kCustom;
  WideString className;
  WideString text;
  style::Bits style = 0;
  style::Bits extendedStyle = 0;
  Rect rect;                      // with its frame; in the parent's client area, or on the screen
  WindowHandle parent = nullptr;  // of a child
  WindowHandle owner = nullptr;   // of a top-level window
  std::vector<WindowHandle> children;
  int id = 0;

  std::unique_ptr<WindowBehaviour> behaviour;      // null for the program's own classes
  std::unique_ptr<MessageHandler> programHandler;  // of the program's own classes
  MessageHandler* dialogHandler = nullptr;         // not owned; null for all but dialogs
  std::shared_ptr<SubclassLink> subclasses;

  const Font* font = nullptr;  // null: the system font
  bool needsPaint = false;
  bool beingDestroyed = false;
  std::vector<Drawing> drawings;
  std::optional<ControlColors> colors;

  bool IsChild() const { return parent != nullptr; }
  bool Has(style::Bits bits) const { return (style & bits) == bits; }
  const Font& FontInUse() const { return font != nullptr ? *font : SystemFont(); }
  Rect ClientArea() const {
    const FrameWidths frame = FrameOf(style, extendedStyle);
    const int width = rect.Width() - 2 * frame.side;
    const int height = rect.Height() - frame.top - frame.side;
    return {0, 0, width > 0 ? width : 0, height > 0 ? height : 0};
  }
};

// What every window does with a message that nobody else took.
LResult HandlePlainMessage(WindowRecord& window, const Message& message);

// Tells a control's parent; the control may be gone afterwards.
void NotifyParent(const WindowRecord& control, int code);

}  // namespace platform::host
