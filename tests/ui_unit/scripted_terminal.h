// A terminal whose keypad is pressed by a script: keys, and glances at the windows between them.
#pragma once

#include "platform/host/environment.h"
#include "platform/window.h"
#include "values/message_boxes.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace ui_test {

class ScriptedDisplay final : public platform::host::Display {
 public:
  // Characters are typed, names in braces are keys: "12{Left}{Enter}". "{C-Tab}" holds Control.
  void Press(const std::string& keys);
  // Run when all that was pressed before has been dealt with.
  void Look(std::function<void()> action);

  void Forget() { steps_.clear(); }

  int Beeps() const { return beeps_; }
  // The windows went away with the last step, not before, and wanted no more.
  bool PlayedToItsEnd() const { return steps_.empty() && !ranOut_; }

  std::optional<platform::host::KeyStroke> NextKey() override;
  void Wake() override {}
  void Pause(std::chrono::milliseconds) override {}
  void Beep() override { ++beeps_; }
  void ComeForward() override {}

 private:
  struct Step {
    platform::host::KeyStroke key;
    std::function<void()> action;  // null: the key is pressed
  };
  std::deque<Step> steps_;
  int beeps_ = 0;
  bool ranOut_ = false;
};

// Answers boxes at once and remembers them, one line each: "caption: text (kind)".
class RecordingBoxes final : public values::MessageBoxes {
 public:
  int Show(WideStringView text, WideStringView caption, int kind) override;

  std::vector<std::string> shown;
  std::function<void()> whileShown;
};

// The environment with the display in it; windows can be made while it lives.
class ScriptedTerminal {
 public:
  ScriptedTerminal();

  ScriptedDisplay display;
  RecordingBoxes boxes;
  std::vector<std::string> debugLines;

 private:
  class DebugObserver final : public platform::host::Observer {
   public:
    explicit DebugObserver(std::vector<std::string>& lines) : lines_(lines) {}
    void Debug(WideStringView line) override;
    void Pulsed(WideStringView) override {}
    void Started(WideStringView, WideStringView, std::uint32_t) override {}
    void WarmReset() override {}

   private:
    std::vector<std::string>& lines_;
  };

  platform::host::Environment MakeEnvironment();

  DebugObserver observer_{debugLines};
  platform::host::InstalledEnvironment installed_;
};

}  // namespace ui_test
