#include "platform/host/message_queue.h"

#include "platform/host/environment.h"

#include <algorithm>

namespace platform::host {

namespace {

void WakeDisplay() {
  if (Display* display = CurrentEnvironment().display) display->Wake();
}

}  // namespace

void MessageQueue::Post(WindowHandle window, const Message& message) {
  {
    const std::lock_guard lock(mutex_);
    posted_.push_back({window, message, 0});
  }
  if (std::this_thread::get_id() != ownThread_) WakeDisplay();
}

std::optional<QueuedMessage> MessageQueue::TakePosted() {
  const std::lock_guard lock(mutex_);
  if (posted_.empty()) return std::nullopt;
  const QueuedMessage first = posted_.front();
  posted_.pop_front();
  return first;
}

bool MessageQueue::HasPosted() const {
  const std::lock_guard lock(mutex_);
  return !posted_.empty();
}

void MessageQueue::Forget(WindowHandle window) {
  const std::lock_guard lock(mutex_);
  std::erase_if(posted_, [window](const QueuedMessage& queued) { return queued.window == window; });
}

std::optional<int> MessageQueue::TakeQuit() {
  if (resetting_) return 0;
  if (!quit_ || HasPosted()) return std::nullopt;
  const std::optional<int> code = quit_;
  quit_.reset();
  return code;
}

void MessageQueue::PressKey(const KeyStroke& stroke) {
  keys_.push_back({stroke, true});
  if (stroke.virtualKey != 0) keys_.push_back({stroke, false});
}

std::optional<MessageQueue::KeyEvent> MessageQueue::TakeKey() {
  if (keys_.empty()) return std::nullopt;
  const KeyEvent first = keys_.front();
  keys_.pop_front();
  return first;
}

void MessageQueue::ThreadEnded() {
  --threads_;
  WakeDisplay();
}

}  // namespace platform::host
