// The main screen's page for long texts: read, paged with the arrow keys and left with Esc.
#pragma once

#include "platform/controls.h"

#include <memory>
#include <vector>

namespace app {

class TextPage final : public platform::MessageHandler {
 public:
  // The page is hidden until it is shown; Esc sends private_message::kCloseTextPage to `owner`.
  void Attach(platform::WindowHandle owner, platform::WindowHandle page);

  void Show(const std::vector<WideString>& lines);
  void Hide();

  std::optional<platform::LResult> OnMessage(platform::WindowHandle window, const platform::Message& message) override;

 private:
  platform::WindowHandle owner_ = nullptr;
  platform::EditField page_;
  std::unique_ptr<platform::Subclass> subclass_;
};

}  // namespace app
