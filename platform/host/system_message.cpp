// The platform's own message box.
#include "platform/dialog.h"
#include "platform/host/environment.h"
#include "platform/host/text_metrics.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr int kTextId = 65535;
constexpr style::Bits kBoxStyle = style::kPopup | style::kCaption | style::kSystemMenu | style::kVisible |
                                  style::kDialogModalFrame | style::kDialogSetFont;

// The only button has the id of Cancel, so that Enter and Esc both press it.
class SystemMessageBox : public MessageHandler {
 public:
  std::optional<LResult> OnMessage(WindowHandle window, const Message& message) override {
    if (message.id != message::kCommand) return std::nullopt;
    if (CommandId(message) == kIdOk || CommandId(message) == kIdCancel) EndDialog(window, kIdOk);
    return 1;
  }
};

struct TextSize {
  int widthPx = 0;
  int lines = 0;
};

TextSize Measure(const host::Font& font, WideStringView text) {
  TextSize size;
  for (std::size_t start = 0; start <= text.size(); ++size.lines) {
    const std::size_t end = std::min(text.find(u'\n', start), text.size());
    size.widthPx = std::max(size.widthPx, host::WidthOf(font, text.substr(start, end - start)));
    start = end + 1;
  }
  return size;
}

int InDialogUnits(int widthPx) { return widthPx * 4 / 6; }

}  // namespace

void ShowSystemMessage(WideStringView text, WideStringView caption) {
  constexpr WideStringView kFace = u"Tahoma";
  constexpr int kButtonWidth = 50;
  constexpr int kButtonHeight = 14;
  constexpr int kMarginsPx = 24;  // with the frame, on both sides of the text
  const TextSize size = Measure(host::FontForPoints(kFace, 8), text);
  const int widest = InDialogUnits(host::CurrentEnvironment().screenWidthPx - kMarginsPx);
  const int textWidth = std::clamp(InDialogUnits(size.widthPx) + 1, kButtonWidth, widest);
  const int textHeight = 8 * (size.lines + InDialogUnits(size.widthPx) / widest);
  const int width = textWidth + 12;
  const std::array<DialogControl, 2> controls{{
      {kIdCancel, u"Button", u"OK", style::kVisible | style::kTabStop | style::kButtonDefault,
       (width - kButtonWidth) / 2, textHeight + 12, kButtonWidth, kButtonHeight},
      {kTextId, u"Static", text, style::kVisible | style::kGroup, 6, 6, textWidth, textHeight},
  }};
  DialogTemplate box;
  box.caption = caption;
  box.style = kBoxStyle;
  box.x = 2;
  box.y = 30;
  box.width = width;
  box.height = textHeight + kButtonHeight + 18;
  box.fontFace = kFace;
  box.fontPoints = 8;
  box.controls = controls;
  SystemMessageBox handler;
  const WaitCursorPause pause;
  RunDialog(box, nullptr, handler);
}

}  // namespace platform
