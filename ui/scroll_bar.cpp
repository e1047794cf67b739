#include "ui/scroll_bar.h"

#include "platform/canvas.h"

namespace ui {
namespace {

constexpr WideStringView kClassName = u"KEL_ScrollBarClass";
constexpr int kWidthPx = 8;
constexpr platform::Color kTrackColor{175, 175, 175};

ScrollThumb thumb;

class ScrollBarPainter final : public platform::MessageHandler {
 public:
  std::optional<platform::LResult> OnMessage(platform::WindowHandle window, const platform::Message& message) override {
    if (message.id != platform::message::kPaint) return std::nullopt;
    const platform::Rect client = platform::ClientRect(window);
    const auto canvas = platform::BeginPaint(window);
    canvas->Fill(client, kTrackColor);
    canvas->Fill({0, thumb.top, client.right, thumb.top + thumb.length}, platform::kBlack);
    return 0;
  }
};

}  // namespace

ScrollThumb CurrentScrollThumb() { return thumb; }

void ScrollBar::Create(platform::WindowHandle owner, int x, int y, int height) {
  platform::RegisterWindowClass(
      {.name = kClassName, .make = [](platform::WindowHandle) { return std::make_unique<ScrollBarPainter>(); }});
  trackHeightPx_ = height;
  window_ = platform::MakeWindow({.className = kClassName,
                                  .style = platform::style::kChild | platform::style::kBorder,
                                  .x = x,
                                  .y = y,
                                  .width = kWidthPx,
                                  .height = height,
                                  .parent = owner});
}

void ScrollBar::SetPageCount(int pages) {
  pageCount_ = pages < 1 ? 1 : pages;
  thumb.length = pages < 1 ? trackHeightPx_ : trackHeightPx_ / pages + 1;
  if (pageCount_ > 1) {
    platform::Show(window_);
  } else {
    platform::Hide(window_);
  }
}

void ScrollBar::SetPosition(int page) {
  if (page >= pageCount_) {
    thumb.top = 0;
  } else {
    const float share = static_cast<float>(page) / static_cast<float>(pageCount_);
    thumb.top = static_cast<int>(share * static_cast<float>(trackHeightPx_));
  }
  platform::Invalidate(window_);
}

}  // namespace ui
