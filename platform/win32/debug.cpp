#include "platform/debug.h"

#include "platform/win32/windows_api.h"

#include <new>

namespace platform {

void DebugOutput(WideStringView line) {
  try {
    OutputDebugStringW(win32::ToApi(WideString(line)));
  } catch (const std::bad_alloc&) {
  }
}

void KernelDebugOutput(WideStringView line) {
#ifdef UNDER_CE
  NKDbgPrintfW(L"%s", win32::ToApi(WideString(line)));
#else
  DebugOutput(line);
#endif
}

}  // namespace platform
