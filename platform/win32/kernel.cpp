#include "platform/kernel.h"

#include "platform/win32/owned_handle.h"

#ifdef UNDER_CE

namespace platform {

void WarmReset() {
  // The request of the hardware layer: device type 0x0101, function 2052, buffered, any access.
  constexpr DWORD kWarmReset = 0x01012010;
  KernelIoControl(kWarmReset, nullptr, 0, nullptr, 0, nullptr);
}

}  // namespace platform

#else

namespace platform {

namespace {

// Restarting a PC is a privilege that a process has to claim.
void ClaimShutdownPrivilege() {
  HANDLE token = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &token)) return;
  const win32::OwnedHandle owned(token);
  TOKEN_PRIVILEGES privileges = {};
  privileges.PrivilegeCount = 1;
  privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (!LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &privileges.Privileges[0].Luid)) return;
  AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
}

}  // namespace

void WarmReset() {
  ClaimShutdownPrivilege();
  if (!ExitWindowsEx(EWX_REBOOT, SHTDN_REASON_FLAG_PLANNED)) return;
  // The restart is on its way; nothing may be done or saved meanwhile.
  TerminateProcess(GetCurrentProcess(), ERROR_SUCCESS_REBOOT_INITIATED);
}

}  // namespace platform

#endif
