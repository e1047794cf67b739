// An entry field asks its dialog whether a typed character is to be swallowed.
#pragma once

#include "platform/window.h"
#include "ui/private_messages.h"

namespace ui {

struct CharacterQuery {
  platform::WindowHandle field = nullptr;
  char16_t character = 0;
};

namespace private_message {
// wParam: CharacterQuery; lParam: bool for the answer.
inline constexpr Id kCharacterQuery = kAddressFieldRequest;
}  // namespace private_message

}  // namespace ui
