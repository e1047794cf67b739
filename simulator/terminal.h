// The simulated terminal: runs the program over a storage and a display, and starts it again after a warm reset.
#pragma once

#include "platform/host/environment.h"
#include "simulator/debug_log.h"
#include "simulator/effects.h"
#include "simulator/other_terminals.h"
#include "simulator/simulated_device.h"
#include "simulator/storage.h"

#include <functional>

namespace simulator {

// A device that is not in this terminal.
struct DeviceElsewhere {
  std::function<std::unique_ptr<platform::ISnmpConfig>()> connect;
  std::string address;            // on the network
  std::function<void()> restart;  // what a warm reset comes to
};

class Terminal : private platform::host::Observer {
 public:
  struct Parts {
    Storage& storage;
    OtherTerminals& others;
    LineLog& effects;
    DebugLog& debug;
    platform::host::Display& display;
    std::function<void()> beforeStartingAgain = {};  // between two runs: nothing refers to the storage then
    DeviceWait deviceWait = {};
    std::optional<DeviceElsewhere> elsewhere = {};  // in place of the storage's
  };
  // The program: takes its command line, runs to its end, answers its status.
  using Program = std::function<int(WideStringView commandLine)>;

  Terminal(Parts parts, int screenWidthPx, int screenHeightPx, Program program);

  // Returns the status of the run that was not ended by a warm reset.
  int Run(WideStringView commandLine);

  // Whether the program ended because it already ran in another terminal, which came forward.
  bool GaveWay() const { return gaveWay_; }

 private:
  platform::host::Environment MakeEnvironment(platform::host::Display& display);
  std::unique_ptr<platform::ISnmpConfig> Connect();

  void Debug(WideStringView line) override { parts_.debug.Add(line); }
  void Pulsed(WideStringView eventName) override;
  void Started(WideStringView program, WideStringView arguments, std::uint32_t result) override;
  void WarmReset() override;

  Parts parts_;
  int screenWidthPx_;
  int screenHeightPx_;
  Program program_;
  bool resetting_ = false;
  bool gaveWay_ = false;
};

// The titles of the program's visible windows, the topmost first.
std::vector<WideString> VisibleTitles();

}  // namespace simulator
