// The main screen, as rules and commands use it.
#pragma once

#include "base/wide_string.h"
#include "model/menu_view.h"
#include "platform/window.h"

#include <vector>

namespace rules {

class Shell : public model::MenuView {
 public:
  // Shows a note in the middle of the screen for a moment.
  virtual void ShowNote(WideStringView text) = 0;
  // Shows lines on the text page until the user leaves it.
  virtual void ShowTextPage(const std::vector<WideString>& lines) = 0;
  // Shows the platform's own message box and returns when it was closed.
  virtual void ShowSystemMessage(WideStringView text, WideStringView caption) = 0;
  virtual platform::WindowHandle MainWindow() = 0;
};

}  // namespace rules
