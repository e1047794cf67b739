// Push buttons, check boxes and radio buttons. The program itself changes checks; a click only tells the parent.
#include "platform/host/painting.h"
#include "platform/host/plain_window.h"

namespace platform::host {

namespace {

constexpr style::Bits kTypeMask = 0xF;
constexpr message::Id kSetStyle = 0x00F4;

class Button : public ButtonBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    switch (message.id) {
      case message::kGetDialogCode: return DialogCode(window);
      case message::kButtonGetCheck: return checked_ ? 1 : 0;
      case message::kButtonSetCheck:
        if (IsPush(window)) return 0;
        checked_ = message.wParam != 0;
        window.needsPaint = true;
        return 0;
      case kSetStyle:
        window.style = (window.style & ~kTypeMask) | (static_cast<style::Bits>(message.wParam) & kTypeMask);
        window.needsPaint = true;
        return 0;
      case message::kButtonClick:
        Send(window.handle, message::kLeftButtonDown);
        Send(window.handle, message::kLeftButtonUp);
        return 0;
      case message::kLeftButtonDown:
      case message::kLeftButtonDoubleClick:
        pressed_ = true;
        Focus(window.handle);
        return 0;
      case message::kLeftButtonUp: return Release(window);
      case message::kKeyDown:
        if (message.wParam == key::kSpace) pressed_ = true;
        return 0;
      case message::kKeyUp: return message.wParam == key::kSpace ? Release(window) : 0;
      case message::kSetFocus:
        window.needsPaint = true;
        // A radio button that is reached by an arrow is chosen.
        if (Type(window) == style::kButtonRadio && !pressed_ && !checked_)
          NotifyParent(window, notification::kButtonClicked);
        return 0;
      case message::kKillFocus:
        window.needsPaint = true;
        pressed_ = false;
        return 0;
      case message::kEnable: window.needsPaint = true; return 0;
      case message::kPaint:
        PaintControl(window, IsPush(window) ? message::kControlColorButton : message::kControlColorStatic);
        return 0;
      default: return HandlePlainMessage(window, message);
    }
  }

  ButtonState State(const WindowRecord& window) const override {
    return {checked_, Type(window) == style::kButtonDefault};
  }

 private:
  static style::Bits Type(const WindowRecord& window) { return window.style & kTypeMask; }
  static bool IsPush(const WindowRecord& window) { return Type(window) <= style::kButtonDefault; }

  static LResult DialogCode(const WindowRecord& window) {
    switch (Type(window)) {
      case 0: return kDialogCodeAnyButton | kDialogCodeButton;
      case style::kButtonDefault: return kDialogCodeAnyButton | kDialogCodeDefaultButton;
      case style::kButtonRadio: return kDialogCodeAnyButton | kDialogCodeRadio;
      default: return kDialogCodeAnyButton;
    }
  }

  LResult Release(WindowRecord& window) {
    if (!pressed_) return 0;
    pressed_ = false;
    NotifyParent(window, notification::kButtonClicked);
    return 0;
  }

  bool checked_ = false;
  bool pressed_ = false;
};

}  // namespace

std::unique_ptr<ButtonBehaviour> MakeButton() { return std::make_unique<Button>(); }

}  // namespace platform::host
