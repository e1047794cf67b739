// Messages that wait for the thread of the windows.
#pragma once

#include "platform/host/display.h"
#include "platform/window.h"

#include <atomic>
#include <deque>
#include <mutex>
#include <thread>

namespace platform::host {

struct QueuedMessage {
  WindowHandle window = nullptr;
  Message message;
  char16_t character = 0;  // of a key-down: what the pressed key types, when the display said so
};

class MessageQueue {
 public:
  // From any thread; from another than the queue's own it wakes the display.
  void Post(WindowHandle window, const Message& message);
  std::optional<QueuedMessage> TakePosted();
  bool HasPosted() const;
  void Forget(WindowHandle window);  // drops what waits for a window that is gone

  // Quitting shows as message::kQuit once no posted message waits.
  void PostQuit(int exitCode) { quit_ = exitCode; }
  std::optional<int> TakeQuit();
  bool IsQuitting() const { return quit_.has_value(); }

  // Ends everything at once, as a device that restarts does: from here on every TakeQuit() says so.
  void Reset() { resetting_ = true; }
  bool IsResetting() const { return resetting_; }

  // Keys that were pressed and are not yet read.
  void PressKey(const KeyStroke& stroke);
  struct KeyEvent {
    KeyStroke stroke;
    bool down = false;
  };
  std::optional<KeyEvent> TakeKey();
  bool HasKeys() const { return !keys_.empty(); }

  // Threads that run; the display is woken when one ends.
  void ThreadStarted() { ++threads_; }
  void ThreadEnded();
  bool AreThreadsRunning() const { return threads_ > 0; }

 private:
  const std::thread::id ownThread_ = std::this_thread::get_id();
  mutable std::mutex mutex_;
  std::deque<QueuedMessage> posted_;  // under mutex_
  std::atomic<int> threads_ = 0;
  std::optional<int> quit_;
  bool resetting_ = false;
  std::deque<KeyEvent> keys_;
};

}  // namespace platform::host
