// The one window procedure of the program, and the handlers that it asks.
//
// Handlers stand in front of a window's own procedure, the latest first. A link that was taken out keeps its way to
// those before it, for messages that are on their way.
#pragma once

#include "platform/win32/windows_api.h"

#include <memory>

namespace platform::win32 {

struct HandlerLink {
  MessageHandler* handler = nullptr;  // null: taken out
  std::shared_ptr<MessageHandler> owned;
  std::shared_ptr<HandlerLink> previous;
};

// Puts a handler in front of a window until the window goes or TakeOut() is called. Null for no window.
std::shared_ptr<HandlerLink> PutInFront(HWND window, MessageHandler& handler);
void TakeOut(HWND window, const std::shared_ptr<HandlerLink>& link);

// The answer of a link, or of those before it, or of the window's own procedure.
LResult AskFrom(std::shared_ptr<HandlerLink> link, HWND window, const Message& message);
LResult AskOwnProcedure(HWND window, const Message& message);

// The procedure of every window with a handler.
LRESULT CALLBACK WindowProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);

}  // namespace platform::win32
