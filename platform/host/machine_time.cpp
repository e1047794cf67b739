#include "platform/host/machine_time.h"

#include <chrono>
#include <ctime>

namespace platform::host {

SystemTime MachineTime() {
  const auto now = std::chrono::system_clock::now();
  const auto sinceEpoch = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch());
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  const auto part = [](int value) { return static_cast<std::uint16_t>(value); };
  return {part(local.tm_year + 1900), part(local.tm_mon + 1),
          part(local.tm_wday),        part(local.tm_mday),
          part(local.tm_hour),        part(local.tm_min),
          part(local.tm_sec),         part(static_cast<int>(sinceEpoch.count() % 1000))};
}

}  // namespace platform::host
