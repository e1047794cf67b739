// Modal dialogs from tables in dialog units.
#pragma once

#include "platform/window.h"

#include <span>

namespace platform {

struct DialogControl {
  int id = 0;
  WideStringView className = {};
  WideStringView text = {};
  style::Bits style = 0;  // style::kChild is understood
  int x = 0, y = 0, width = 0, height = 0;
};

struct DialogTemplate {
  int id = 0;
  WideStringView caption = {};
  style::Bits style = 0;
  int x = 0, y = 0, width = 0, height = 0;
  WideStringView fontFace = {};
  int fontPoints = 0;
  std::span<const DialogControl> controls = {};
};

// Runs a dialog until EndDialog() and returns its result; -1 when it cannot be made. The owner is disabled meanwhile.
//
// The handler is asked first about every message of the dialog. Its answer to message::kInitDialog says whether the
// dialog is to focus its first control (nonzero, or nothing) or the handler has set the focus itself (0).
LResult RunDialog(const DialogTemplate& dialogTemplate, WindowHandle owner, MessageHandler& handler);

// The dialog is hidden, its owner enabled and made active; RunDialog() returns once the messages at hand are done.
void EndDialog(WindowHandle dialog, LResult result);

}  // namespace platform
