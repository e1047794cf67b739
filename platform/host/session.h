// The state of the window system between the installation of an environment and its end.
#pragma once

#include "platform/host/desktop.h"
#include "platform/host/environment.h"
#include "platform/host/message_queue.h"
#include "platform/host/window_record.h"

#include <map>
#include <set>
#include <unordered_map>

namespace platform::host {

struct Session {
  Environment environment;

  // Handles are serial numbers, never used twice in a session, so that a stale one is known as such.
  std::unordered_map<WindowHandle, std::shared_ptr<WindowRecord>> windows;
  std::uintptr_t nextHandle = 0x1000;
  std::vector<WindowHandle> topLevels;  // from the bottom of the z-order to the top
  std::vector<WindowHandle> foreign;    // handles of Environment::otherWindows, by index
  std::vector<std::pair<WideString, std::function<std::unique_ptr<MessageHandler>(WindowHandle)>>> classes;

  WindowHandle focused = nullptr;
  WindowHandle active = nullptr;

  MessageQueue queue;
  std::set<std::uint16_t> keysDown;
  int waitCursors = 0;
};

// The installed environment's; without one, a session of a terminal that has nothing.
Session& CurrentSession();

// The record of a window that lives, else null. Keep the pointer while messages are sent: a handler may destroy the
// window.
std::shared_ptr<WindowRecord> Find(WindowHandle window);

}  // namespace platform::host
