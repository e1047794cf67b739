// Keeps Wine's desktop up while it runs: Wine takes it down a second after the last program that used it, and a program
// that starts just then has no windows. Writes the file that its argument names when the desktop stands.
#include <windows.h>

#include <cstdio>

int wmain(int count, wchar_t** arguments) {
  if (count != 2 || GetDesktopWindow() == nullptr) return 1;
  std::FILE* const file = _wfopen(arguments[1], L"wb");
  if (file == nullptr) return 1;
  std::fputs("held\n", file);
  std::fclose(file);
  Sleep(INFINITE);
  return 0;
}
