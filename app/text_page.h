// The main screen's page for long texts: read, paged with the arrow keys and left with Esc.
#pragma once

#include "platform/controls.h"
#include "ui/scroll_bar.h"

#include <memory>
#include <vector>

namespace app {

class TextPage final : public platform::MessageHandler {
 public:
  // The page, with a scroll bar at its right edge, is hidden until it is shown; Esc sends
  // private_message::kCloseTextPage to `owner`.
  void Attach(platform::WindowHandle owner, platform::WindowHandle page);

  void Show(const std::vector<WideString>& lines);
  void Hide();

  std::optional<platform::LResult> OnMessage(platform::WindowHandle window, const platform::Message& message) override;

 private:
  bool Scroll(std::uint16_t virtualKey) const;
  int LinesPerPage() const;
  void UpdateScrollBar();

  platform::WindowHandle owner_ = nullptr;
  platform::EditField page_;
  ui::ScrollBar scrollBar_;
  std::unique_ptr<platform::Subclass> subclass_;
};

}  // namespace app
