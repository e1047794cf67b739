// Stands for the programs that the utility starts: writes its command line, as a line, to the file that
// KEL_RECORD names, if any.
#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>

int wmain() {
  const wchar_t* file = _wgetenv(L"KEL_RECORD");
  if (file == nullptr) return 0;
  const auto close = [](std::FILE* opened) { std::fclose(opened); };
  const std::unique_ptr<std::FILE, decltype(close)> record(_wfopen(file, L"ab"));
  if (!record) return 1;
  // In one piece: another of these may be writing too.
  const std::wstring line = std::wstring(GetCommandLineW()) + L'\n';
  std::fwrite(line.data(), sizeof(wchar_t), line.size(), record.get());
  return 0;
}
