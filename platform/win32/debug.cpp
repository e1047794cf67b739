#include "platform/debug.h"

#include "platform/win32/windows_api.h"

namespace platform {

void DebugOutput(WideStringView line) { OutputDebugStringW(win32::ToApi(WideString(line))); }

void KernelDebugOutput(WideStringView line) {
#ifdef UNDER_CE
  NKDbgPrintfW(L"%s", win32::ToApi(WideString(line)));
#else
  DebugOutput(line);
#endif
}

}  // namespace platform
