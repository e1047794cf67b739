#include "platform/host/machine_time.h"

#include <windows.h>

namespace platform::host {

SystemTime MachineTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDayOfWeek, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace platform::host
