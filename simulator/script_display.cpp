#include "simulator/script_display.h"

#include "platform/host/desktop.h"
#include "platform/messages.h"
#include "platform/window.h"
#include "simulator/host_snapshot.h"

#include <utility>

namespace simulator {

using platform::host::KeyStroke;

ScriptDisplay::ScriptDisplay(Script script, std::string name, LineLog& effects, DebugLog& debug,
                             ScriptPlayer::Print print)
    : effects_(effects),
      debug_(debug),
      player_(std::move(script), std::move(name), static_cast<ScriptDriver&>(*this), std::move(print)) {}

std::optional<KeyStroke> ScriptDisplay::NextKey() {
  for (;;) {
    switch (player_.Next()) {
      case ScriptPlayer::Step::kRan: break;
      case ScriptPlayer::Step::kInput: return std::exchange(pressed_, std::nullopt);
      case ScriptPlayer::Step::kWaits: WaitUntilWoken(); return std::nullopt;
      case ScriptPlayer::Step::kFinished: platform::PostQuit(0); return std::nullopt;
    }
  }
}

void ScriptDisplay::PlayRest() {
  running_ = false;
  while (player_.Next() == ScriptPlayer::Step::kRan) {
  }
}

void ScriptDisplay::Wake() {
  const std::lock_guard lock(mutex_);
  woken_ = true;
  wakes_.notify_one();
}

void ScriptDisplay::WaitUntilWoken() {
  std::unique_lock lock(mutex_);
  wakes_.wait(lock, [this] { return woken_; });
  woken_ = false;
}

void ScriptDisplay::Press(const Key& key) { pressed_ = KeyStroke{key.virtualKey, key.character, key.shift, false}; }

// Posted, since a click may run a dialog of its own before it is done.
bool ScriptDisplay::Click(int controlId) {
  const platform::WindowHandle button = platform::ControlOf(platform::ActiveWindow(), controlId);
  if (platform::host::KindOf(button) != platform::host::WindowKind::kButton) return false;
  if (!platform::IsVisible(button) || !platform::IsEnabled(button)) return false;
  platform::Post(button, platform::message::kButtonClick);
  return true;
}

// A thread may post its last message and end while the display is being asked: that message comes first.
bool ScriptDisplay::HasSettled() {
  return !platform::host::AreThreadsRunning() && !platform::host::AreMessagesWaiting();
}

ScreenPicture ScriptDisplay::Screen() { return running_ ? TakeScreenPicture() : ScreenPicture{}; }

}  // namespace simulator
