// The terminal around the program on Linux: supplied by the simulator, or by a test.
#pragma once

#include "base/wide_string.h"
#include "platform/controls.h"
#include "platform/device.h"
#include "platform/host/display.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform::host {

class RegistryTree;

// Told what leaves the program, in order; may be called from the worker thread only for Debug().
class Observer {
 public:
  virtual ~Observer() = default;
  virtual void Debug(WideStringView line) = 0;
  virtual void Pulsed(WideStringView eventName) = 0;
  virtual void Started(WideStringView program, WideStringView arguments, std::uint32_t result) = 0;
  virtual void WarmReset() = 0;
};

// Uses of the terminal's disk, of other programs and of its windows, each of which can fail.
enum class Use { kOpenFile, kReadFile, kCreateFile, kWriteFile, kReplaceFile, kStartProgram, kMakeWindow };

struct Environment {
  std::filesystem::path root;                    // the terminal's storage; empty: no file exists
  std::shared_ptr<const RegistryTree> registry;  // null: an empty registry
  // Answers ConnectSnmpConfig() and GetTableValue(); without one the objects cannot be had.
  std::function<std::unique_ptr<ISnmpConfig>()> connectDevice;
  std::function<TableAnswer(const WideString& progId, const WideString& table, const WideString& key)> tableValue;
  Observer* observer = nullptr;
  Display* display = nullptr;  // must be there before a window is made
  int screenWidthPx = 240;
  int screenHeightPx = 320;
  // Titles of other programs' top-level windows, topmost first, and how to bring one forward.
  std::vector<WideString> otherWindows;
  std::function<void(std::size_t index)> bringOtherForward;
  std::optional<SystemTime> localTime;  // nothing: the machine's clock
  std::string hostName;                 // empty: the machine's
  std::string hostAddress;              // of `hostName`, dotted
  std::function<bool(Use)> refuses;     // whether a use fails now, as on a broken or full disk; none: it does not
  std::function<bool(WideStringView eventName)> failsWait;  // whether waiting for an event fails; none: it does not
};

// The environment in force. Exactly one is installed at a time, before the program runs.
Environment& CurrentEnvironment();
bool IsRefused(Use use);

// Whether the program has restarted the device. From then on every modal loop ends, new ones return 0 at once and
// nothing more is read from the display, so that the program comes to its end; it starts again in a new environment.
bool IsWarmReset();

// Installs an environment while it lives. Windows, classes, events and key states start afresh with it. The program's
// threads have ended before it goes.
class InstalledEnvironment {
 public:
  explicit InstalledEnvironment(Environment environment);
  ~InstalledEnvironment();
  InstalledEnvironment(const InstalledEnvironment&) = delete;
  InstalledEnvironment& operator=(const InstalledEnvironment&) = delete;
};

}  // namespace platform::host
