// What left the program, one line each, in order: device calls, pulsed events, started programs, the end.
#pragma once

#include "platform/device.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace simulator {

// The ordinary operations of the device, or the alternate ones.
enum class Operation { kOrdinary, kSpecial };

// The lines. A Get shows a failing code, or the text, or null.
std::string GetLine(Operation operation, WideStringView oid, WideStringView type, platform::ResultCode code,
                    const std::optional<WideString>& value);
std::string SetLine(Operation operation, WideStringView oid, WideStringView type, WideStringView value,
                    platform::ResultCode code);
std::string TableLine(WideStringView table, WideStringView key, platform::ResultCode code, WideStringView text);
std::string PulseLine(WideStringView eventName);
std::string StartLine(WideStringView program, WideStringView arguments, std::uint32_t result);
std::string WarmResetLine();
std::string ExitLine(int status);

// Lines in order, from any thread. They are kept only when somebody is to take them.
class LineLog {
 public:
  explicit LineLog(bool keepLines = true) : keepLines_(keepLines) {}
  void Add(std::string line);
  std::vector<std::string> Take();  // and forgets them

 private:
  const bool keepLines_;
  std::mutex mutex_;
  std::vector<std::string> lines_;
};

}  // namespace simulator
