#include "app/text_page.h"

#include "ui/private_messages.h"

#include <algorithm>

namespace app {
namespace {

constexpr platform::FontSpec kFont{.face = u"System", .heightPx = 11, .weight = 400};
constexpr int kAllLines = 100000;

WideString Join(const std::vector<WideString>& lines) {
  WideString text;
  for (const WideString& line : lines) text += line + u"\r\n";
  if (!text.empty()) text.resize(text.size() - 2);
  return text;
}

}  // namespace

void TextPage::Attach(platform::WindowHandle owner, platform::WindowHandle page) {
  owner_ = owner;
  page_ = platform::EditField(page);
  platform::SetFont(page, kFont);
  const platform::Rect rect = platform::RectInParent(page);
  scrollBar_.Create(owner, rect.right, rect.top, rect.Height());
  subclass_ = std::make_unique<platform::Subclass>(page, *this);
  Hide();
}

void TextPage::Show(const std::vector<WideString>& lines) {
  platform::SetText(page_.Handle(), Join(lines));
  page_.SetReadOnly(false);  // a read-only field would not scroll with its caret
  page_.ShowAndEnable();
  platform::Focus(page_.Handle());
  scrollBar_.SetPageCount((page_.LineCount() - 1) / LinesPerPage() + 1);
  UpdateScrollBar();
}

void TextPage::Hide() {
  page_.HideAndDisable();
  scrollBar_.Hide();
}

int TextPage::LinesPerPage() const {
  const int heightPx = platform::ClientRect(page_.Handle()).Height();
  return std::max(1, heightPx / std::max(1, platform::LineHeight(page_.Handle(), kFont)));
}

// A page that is seen in part counts: so the last one is reached.
void TextPage::UpdateScrollBar() {
  const int linesPerPage = LinesPerPage();
  scrollBar_.SetPosition((page_.FirstVisibleLine() + linesPerPage - 1) / linesPerPage);
}

// The view moves and the caret stays, so no key may bring the caret into view again.
bool TextPage::Scroll(std::uint16_t virtualKey) const {
  switch (virtualKey) {
    case platform::key::kPageDown:
    case platform::key::kDown: page_.ScrollPage(true); return true;
    case platform::key::kPageUp:
    case platform::key::kUp: page_.ScrollPage(false); return true;
    case platform::key::kHome: page_.ScrollLines(-kAllLines); return true;
    case platform::key::kEnd: page_.ScrollLines(kAllLines); return true;
    case platform::key::kLeft:
    case platform::key::kRight:
    case platform::key::kEnter:
    case platform::key::kTab:
    case platform::key::kDelete:
    case platform::key::kInsert: return true;
    default: return false;
  }
}

std::optional<platform::LResult> TextPage::OnMessage(platform::WindowHandle, const platform::Message& message) {
  switch (message.id) {
    case platform::message::kGetDialogCode: return platform::dialog_code::kWantAllKeys;
    case platform::message::kChar:
    case platform::message::kPaste: return 0;  // the page is read, not written
    case platform::message::kKeyDown:
      if (message.wParam == platform::key::kEscape) {
        platform::Post(owner_, ui::private_message::kCloseTextPage);
        return 0;
      }
      if (!Scroll(static_cast<std::uint16_t>(message.wParam))) return std::nullopt;
      UpdateScrollBar();
      return 0;
    default: return std::nullopt;
  }
}

}  // namespace app
