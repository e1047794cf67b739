// deny_key PATH: lets nobody open the key below HKEY_LOCAL_MACHINE any more, as a locked terminal has such keys.
#include <windows.h>

#include <sddl.h>

int wmain(int count, wchar_t** arguments) {
  HKEY key = nullptr;
  if (count != 2 || RegOpenKeyExW(HKEY_LOCAL_MACHINE, arguments[1], 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return 2;
  PSECURITY_DESCRIPTOR onlyItsPermissions = nullptr;
  ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:(A;;SDWDRC;;;WD)", SDDL_REVISION_1, &onlyItsPermissions,
                                                       nullptr);
  const LSTATUS set = RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, onlyItsPermissions);
  LocalFree(onlyItsPermissions);
  RegCloseKey(key);
  return set == ERROR_SUCCESS ? 0 : 1;
}
