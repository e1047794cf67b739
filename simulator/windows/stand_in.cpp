// Stands for the programs that a terminal has: notes its run, and how it was called, in a text file that bears its
// name, in the folder above its own.
#include <windows.h>

#include <filesystem>
#include <fstream>

int wmain() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  const std::filesystem::path program(path);
  std::ofstream notes(program.parent_path().parent_path() / program.stem().concat(L".txt"), std::ios::app);
  for (const wchar_t* unit = GetCommandLineW(); *unit != L'\0'; ++unit) notes.put(static_cast<char>(*unit));
  notes << "\r\n";
  notes.close();
  return notes ? 0 : 1;
}
