#include "platform/debug.h"
#include "platform/window.h"

#include <exception>

namespace platform {

std::optional<LResult> AnswerOf(MessageHandler& handler, WindowHandle window, const Message& message) {
  try {
    return handler.OnMessage(window, message);
  } catch (const std::exception&) {
    DebugOutput(u"EXCEPTION: MessageHandler::OnMessage()\r\n");
    return 0;
  }
}

}  // namespace platform
