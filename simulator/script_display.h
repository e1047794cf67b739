// The display of scripts: it shows nothing and presses the keys that the script names whenever the program is idle.
// Time is virtual: a pause takes none. At the script's end it asks the program to quit.
#pragma once

#include "platform/host/display.h"
#include "simulator/debug_log.h"
#include "simulator/effects.h"
#include "simulator/script_player.h"

#include <condition_variable>
#include <mutex>

namespace simulator {

class ScriptDisplay : public platform::host::Display, private ScriptDriver {
 public:
  // The logs must live longer.
  ScriptDisplay(Script script, std::string name, LineLog& effects, DebugLog& debug, ScriptPlayer::Print print);

  ScriptPlayer& Player() { return player_; }

  // The program has ended: plays what is left of the script, which can print but press nothing.
  void PlayRest();

  std::optional<platform::host::KeyStroke> NextKey() override;
  void Wake() override;
  void Pause(std::chrono::milliseconds) override {}
  void Beep() override {}
  void ComeForward() override {}

 private:
  bool IsRunning() override { return running_; }
  void Press(const Key& key) override;
  void Type(const Key& key) override { Press(key); }
  bool Click(int controlId) override;
  bool HasSettled() override;
  ScreenPicture Screen() override;
  std::vector<std::string> TakeEffects() override { return effects_.Take(); }
  std::vector<WideString> TakeDebugLines() override { return debug_.TakeLines(); }

  void WaitUntilWoken();

  LineLog& effects_;
  DebugLog& debug_;
  ScriptPlayer player_;
  bool running_ = true;
  std::optional<platform::host::KeyStroke> pressed_;
  std::mutex mutex_;
  std::condition_variable wakes_;
  bool woken_ = false;
};

}  // namespace simulator
