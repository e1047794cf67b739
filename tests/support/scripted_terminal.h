// A terminal with a scripted display, boxes that answer at once, and the debug lines of the code under test.
#pragma once

#include "base/utf8.h"
#include "platform/host/environment.h"
#include "tests/support/scripted_display.h"
#include "values/message_boxes.h"

#include <functional>
#include <string>
#include <vector>

namespace tests {

// Answers boxes at once and remembers them, one line each: "caption: text (kind)".
class RecordingBoxes final : public values::MessageBoxes {
 public:
  int Show(WideStringView text, WideStringView caption, int kind) override {
    shown.push_back(base::ToUtf8(caption) + ": " + base::ToUtf8(text) + " (" + std::to_string(kind) + ")");
    if (whileShown) whileShown();
    return 0;
  }

  std::vector<std::string> shown;
  std::function<void()> whileShown;
};

// The environment with the display in it; windows can be made while it lives.
class ScriptedTerminal {
 public:
  ScriptedDisplay display;
  RecordingBoxes boxes;
  std::vector<std::string> debugLines;

 private:
  class DebugObserver final : public platform::host::Observer {
   public:
    explicit DebugObserver(std::vector<std::string>& lines) : lines_(lines) {}
    void Debug(WideStringView line) override { lines_.push_back(base::ToUtf8(line)); }
    void Pulsed(WideStringView) override {}
    void Started(WideStringView, WideStringView, std::uint32_t) override {}
    void WarmReset() override {}

   private:
    std::vector<std::string>& lines_;
  };

  platform::host::Environment MakeEnvironment() {
    platform::host::Environment environment;
    environment.observer = &observer_;
    environment.display = &display;
    return environment;
  }

  DebugObserver observer_{debugLines};
  platform::host::InstalledEnvironment installed_{MakeEnvironment()};
};

}  // namespace tests
