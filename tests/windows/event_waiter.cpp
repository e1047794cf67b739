// event_waiter EVENT FILE: waits for a named event, as another program of the terminal does. Writes "waiting" to FILE
// when it begins and "woken" when the event came.
//
// Exit status: 0 woken; 1 not within a minute; 2 unusable arguments.
#include <windows.h>

#include <cstdio>

namespace {

bool Append(const wchar_t* file, const char* line) {
  std::FILE* opened = _wfopen(file, L"ab");
  if (opened == nullptr) return false;
  std::fputs(line, opened);
  return std::fclose(opened) == 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  constexpr DWORD kPatienceMs = 60'000;
  if (count != 3) return 2;
  const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, arguments[1]);
  if (event == nullptr || !Append(arguments[2], "waiting\n")) return 2;
  const bool woken = WaitForSingleObject(event, kPatienceMs) == WAIT_OBJECT_0;
  CloseHandle(event);
  if (!woken) return 1;
  return Append(arguments[2], "woken\n") ? 0 : 2;
}
