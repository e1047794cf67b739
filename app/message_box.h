// The program's own message and prompt boxes, answered from the keypad: Enter accepts, Esc cancels, a question is
// answered by moving the selection in a short list.
#pragma once

#include "platform/dialog.h"
#include "values/message_boxes.h"

namespace app {

class MessageBox final : public values::MessageBoxes {
 public:
  // The owner of every box from now on; null before there is a main window.
  void SetOwner(platform::WindowHandle owner) { owner_ = owner; }

  int Show(WideStringView text, WideStringView caption, int kind) override;

 private:
  platform::WindowHandle owner_ = nullptr;
};

// The template for a text of that width in a window of that width, in pixels.
const platform::DialogTemplate& TemplateFor(int kind, int textWidth, int clientWidth);

}  // namespace app
