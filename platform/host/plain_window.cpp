// What every window does by itself, and the controls that do little more.
#include "platform/host/plain_window.h"

#include "platform/host/painting.h"
#include "platform/host/window_tree.h"

#include <algorithm>

namespace platform::host {

LResult CopyText(WideStringView text, const Message& message) {
  auto* const buffer = FromParam<char16_t>(message.lParam);
  if (buffer == nullptr || message.wParam == 0) return 0;
  const std::size_t length = std::min<std::size_t>(text.size(), message.wParam - 1);
  std::copy_n(text.begin(), length, buffer);
  buffer[length] = u'\0';
  return static_cast<LResult>(length);
}

WideString TextParam(const Message& message) {
  const auto* const text = FromParam<const char16_t>(message.lParam);
  return text != nullptr ? WideString(text) : WideString();
}

LResult HandlePlainMessage(WindowRecord& window, const Message& message) {
  switch (message.id) {
    case message::kSetText:
      window.text = TextParam(message);
      window.needsPaint = true;
      return 1;
    case message::kGetText: return CopyText(window.text, message);
    case message::kGetTextLength: return static_cast<LResult>(window.text.size());
    case message::kSetFont:
      window.font = FontFromParam(message.wParam);
      window.needsPaint = true;
      return 0;
    case message::kGetFont: return ToLParam(window.font);
    case message::kPaint: window.needsPaint = false; return 0;
    case message::kEraseBackground: return 1;
    case message::kActivate:
      if ((message.wParam & 0xFFFF) != kInactive) Focus(window.handle);
      return 0;
    case message::kClose: Destroy(window.handle); return 0;
    default: return 0;
  }
}

void NotifyParent(const WindowRecord& control, int code) {
  const WParam wParam = (static_cast<WParam>(code) << 16) | static_cast<std::uint16_t>(control.id);
  Send(control.parent, message::kCommand, wParam, ToLParam(control.handle));
}

namespace {

class StaticText : public WindowBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    switch (message.id) {
      case message::kGetDialogCode: return kDialogCodeStatic;
      case message::kPaint: PaintControl(window, message::kControlColorStatic); return 0;
      case message::kEnable: window.needsPaint = true; return 0;
      default: return HandlePlainMessage(window, message);
    }
  }
};

}  // namespace

std::unique_ptr<WindowBehaviour> MakeStaticText() { return std::make_unique<StaticText>(); }

}  // namespace platform::host
