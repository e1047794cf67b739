// A terminal around the code under test: it keeps the debug lines, answers from tables in memory and presses Enter in
// every box of the platform's own.
#pragma once

#include "base/wide_string.h"
#include "platform/host/desktop.h"
#include "platform/host/display.h"
#include "platform/host/environment.h"
#include "platform/host/registry_tree.h"
#include "platform/window.h"

#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace tests {

class TestTerminal final : private platform::host::Observer, private platform::host::Display {
 public:
  TestTerminal() : registry_(std::make_shared<platform::host::RegistryTree>()), installed_(MakeEnvironment()) {}

  platform::host::RegistryTree& Registry() { return *registry_; }

  // An answer of the property server; without one for a table and key the call fails.
  void PutTable(WideStringView table, WideStringView key, WideStringView text) {
    tables_[{WideString(table), WideString(key)}] = text;
  }
  // How far requests to the property server come, and the result code of those that come no further.
  platform::TableAnswer::Stage serverStage = platform::TableAnswer::Stage::kCalled;
  platform::ResultCode serverResult = platform::kOk;

  std::vector<WideString> TakeDebugLines() {
    const std::lock_guard lock(mutex_);
    return std::exchange(debugLines_, {});
  }
  // "CAPTION: TEXT" of each box of the platform's own.
  std::vector<WideString> TakeSystemBoxes() { return std::exchange(systemBoxes_, {}); }
  // Names of pulsed events.
  std::vector<WideString> TakePulses() { return std::exchange(pulses_, {}); }
  // "PROGRAM ARGUMENTS" of each program started.
  std::vector<WideString> TakeStarts() { return std::exchange(starts_, {}); }

 private:
  platform::host::Environment MakeEnvironment() {
    platform::host::Environment environment;
    environment.registry = registry_;
    environment.tableValue = [this](const WideString& server, const WideString& table, const WideString& key) {
      return Look(server, table, key);
    };
    environment.observer = this;
    environment.display = this;
    return environment;
  }

  platform::TableAnswer Look(const WideString& server, const WideString& table, const WideString& key) {
    platform::TableAnswer answer;
    if (server != u"Valtorix.ConfigProperty") return answer;
    answer.stage = serverStage;
    answer.code = serverResult;
    const auto found = tables_.find({table, key});
    if (serverStage != platform::TableAnswer::Stage::kCalled) return answer;
    if (found == tables_.end()) {
      answer.code = platform::kFailed;
    } else {
      answer.text = found->second;
    }
    return answer;
  }

  void Debug(WideStringView line) override {
    const std::lock_guard lock(mutex_);
    debugLines_.emplace_back(line);
  }
  void Pulsed(WideStringView eventName) override { pulses_.emplace_back(eventName); }
  void Started(WideStringView program, WideStringView arguments, std::uint32_t) override {
    starts_.push_back(WideString(program) + u" " + WideString(arguments));
  }
  void WarmReset() override {}

  std::optional<platform::host::KeyStroke> NextKey() override {
    const platform::WindowHandle box = platform::ActiveWindow();
    WideString text = platform::TextOf(box) + u": ";
    for (const platform::WindowHandle child : platform::host::ChildrenOf(box)) {
      if (platform::host::KindOf(child) == platform::host::WindowKind::kStatic) text += platform::TextOf(child);
    }
    systemBoxes_.push_back(text);
    return platform::host::KeyStroke{platform::key::kEnter, u'\r', false, false};
  }
  void Wake() override {}
  void Pause(std::chrono::milliseconds) override {}
  void Beep() override {}
  void ComeForward() override {}

  std::shared_ptr<platform::host::RegistryTree> registry_;
  std::map<std::pair<WideString, WideString>, WideString> tables_;
  std::mutex mutex_;
  std::vector<WideString> debugLines_;
  std::vector<WideString> systemBoxes_;
  std::vector<WideString> pulses_;
  std::vector<WideString> starts_;
  platform::host::InstalledEnvironment installed_;  // last: it goes first
};

}  // namespace tests
