#include "platform/program.h"
#include "platform/win32/windows_api.h"

// Windows CE gives the wide command line to the function of the plain name.
#ifdef UNDER_CE
#define ENTRY_POINT WinMain
#else
#define ENTRY_POINT wWinMain
#endif

int WINAPI ENTRY_POINT(HINSTANCE, HINSTANCE, LPWSTR commandLine, int) {
  return platform::RunProgram(platform::win32::FromApi(commandLine));
}
