#include "app/box_layout.h"

#include <algorithm>

namespace app {
namespace {

using platform::Rect;
using platform::WindowHandle;

int HeightOf(WindowHandle message, WideStringView text, int widthPx) {
  return LinesOf(message, text, widthPx) * platform::LineHeight(message, kMessageFont);
}

}  // namespace

int LinesOf(WindowHandle window, WideStringView text, int widthPx) {
  int lines = 0;
  while (true) {
    const std::size_t end = std::min(text.find(u'\n'), text.size());
    WideStringView paragraph = text.substr(0, end);
    ++lines;
    for (std::size_t length = 0; length < paragraph.size();) {
      const std::size_t next = std::min(paragraph.find(u' ', length + 1), paragraph.size());
      if (length > 0 && platform::MeasureText(window, paragraph.substr(0, next), kMessageFont) > widthPx) {
        paragraph.remove_prefix(length + 1);
        length = 0;
        ++lines;
      } else {
        length = next;
      }
    }
    if (end == text.size()) return lines;
    text.remove_prefix(end + 1);
  }
}

void FitToText(const BoxParts& parts, WideStringView text, bool centred) {
  const Rect screen = platform::ScreenRect();
  const Rect message = platform::RectInParent(parts.message);
  const Rect below = platform::RectInParent(parts.below);
  Rect box = platform::WindowRect(parts.box);

  const int room = below.top - message.top;
  // The small screen's right edge comes before the box's.
  int wider = std::min(0, screen.right - platform::WindowRect(parts.message).right);
  int height = HeightOf(parts.message, text, message.Width() + wider);
  if (box.bottom + height - room > screen.bottom && box.right < screen.right) {
    wider = screen.right - box.right;
    height = HeightOf(parts.message, text, message.Width() + wider);
  }
  const int higher = std::clamp(height - room, 0, std::max(0, screen.bottom - box.bottom));
  const int above = centred ? std::max(0, message.Height() - height) / 2 : 0;

  platform::Move(parts.message,
                 {message.left, message.top + above, message.right + wider, message.top + room + higher});
  platform::Move(parts.below, {below.left, below.top + higher, below.right, below.bottom + higher});
  box.right += std::max(0, wider);
  box.bottom += higher;
  platform::Move(parts.box, box);
}

}  // namespace app
