#include "app/text_page.h"

#include "ui/private_messages.h"

namespace app {
namespace {

constexpr platform::FontSpec kFont{.face = u"System", .heightPx = 11, .weight = 400};
constexpr int kAllLines = 100000;

WideString Join(const std::vector<WideString>& lines) {
  WideString text;
  for (const WideString& line : lines) {
    if (!text.empty()) text += u"\r\n";
    text += line;
  }
  return text;
}

}  // namespace

void TextPage::Attach(platform::WindowHandle owner, platform::WindowHandle page) {
  owner_ = owner;
  page_ = platform::EditField(page);
  platform::SetFont(page, kFont);
  subclass_ = std::make_unique<platform::Subclass>(page, *this);
  Hide();
}

void TextPage::Show(const std::vector<WideString>& lines) {
  platform::SetText(page_.Handle(), Join(lines));
  page_.SetReadOnly(false);  // a read-only field would not scroll with its caret
  page_.ShowAndEnable();
  platform::Focus(page_.Handle());
}

void TextPage::Hide() { page_.HideAndDisable(); }

std::optional<platform::LResult> TextPage::OnMessage(platform::WindowHandle, const platform::Message& message) {
  switch (message.id) {
    case platform::message::kGetDialogCode: return platform::dialog_code::kWantAllKeys;
    case platform::message::kChar:
    case platform::message::kPaste: return 0;  // the page is read, not written
    case platform::message::kKeyDown:
      switch (message.wParam) {
        case platform::key::kEscape: platform::Post(owner_, ui::private_message::kCloseTextPage); return 0;
        // The view moves and the caret stays, so no key may bring the caret into view again.
        case platform::key::kPageDown:
        case platform::key::kDown: page_.ScrollPage(true); return 0;
        case platform::key::kPageUp:
        case platform::key::kUp: page_.ScrollPage(false); return 0;
        case platform::key::kHome: page_.ScrollLines(-kAllLines); return 0;
        case platform::key::kEnd: page_.ScrollLines(kAllLines); return 0;
        case platform::key::kLeft:
        case platform::key::kRight:
        case platform::key::kEnter:
        case platform::key::kTab:
        case platform::key::kDelete:
        case platform::key::kInsert: return 0;
        default: return std::nullopt;
      }
    default: return std::nullopt;
  }
}

}  // namespace app
