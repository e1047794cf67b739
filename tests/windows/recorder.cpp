// Stands for the programs that the utility starts: writes its command line to the file that KEL_RECORD names, if any.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <memory>

int wmain() {
  const wchar_t* file = _wgetenv(L"KEL_RECORD");
  if (file == nullptr) return 0;
  const auto close = [](std::FILE* opened) { std::fclose(opened); };
  const std::unique_ptr<std::FILE, decltype(close)> record(_wfopen(file, L"ab"));
  if (!record) return 1;
  const wchar_t* commandLine = GetCommandLineW();
  std::fwrite(commandLine, sizeof(wchar_t), std::wcslen(commandLine), record.get());
  return 0;
}
