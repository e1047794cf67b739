// The window classes that the program registered.
#pragma once

#include "platform/win32/windows_api.h"

#include <memory>

namespace platform::win32 {

// A new handler for a window that is being made; null when its class is not the program's.
std::unique_ptr<MessageHandler> MakeHandlerFor(HWND window);

}  // namespace platform::win32
