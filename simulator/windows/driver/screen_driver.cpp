// screen_driver: plays a UI script against the utility on Windows and prints what the simulated terminal would.
//
//   screen_driver [--hold FILE] PROGRAM SCRIPT [SOURCE...]
//
// PROGRAM is the utility's executable, SCRIPT the script's file, SOURCE the utility's command line. The terminal's
// storage is the current folder, which should be the root of a drive. With --hold the program stays as it is after the
// script until FILE, which is made then, is removed: so its windows can be looked at.
//
// The file that the environment variable KEL_BEGUN names is made at once: a driver that ended without a word did run.
//
// Exit status: 0 the script ran to its end; 1 it failed; 2 unusable arguments; 124 the program took too long.
#include "base/utf8.h"
#include "simulator/text_file.h"
#include "simulator/windows/driver/program_driver.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace simulator {
namespace {

enum Status { kRan = 0, kScriptFailed = 1, kUnusable = 2, kTookTooLong = 124 };

int Complain(Status status, const std::string& problem) {
  std::fprintf(stderr, "%s\n", problem.c_str());
  return status;
}

// False when nobody can read it any more, also of what was printed before.
bool Print(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

// The rest of the arguments as one text.
WideString CommandLine(int count, wchar_t** arguments, int first) {
  WideString commandLine;
  for (int i = first; i < count; ++i) {
    if (i > first) commandLine += u" ";
    commandLine += reinterpret_cast<const char16_t*>(arguments[i]);
  }
  return commandLine;
}

void HoldWhileThere(const std::filesystem::path& file) {
  constexpr DWORD kHoldPollMs = 20;
  constexpr int kMostPolls = 3000;
  std::ofstream(file) << "held\n";
  std::error_code error;
  for (int i = 0; i < kMostPolls && std::filesystem::exists(file, error); ++i) Sleep(kHoldPollMs);
}

void SayThatItBegan() {
  if (const wchar_t* const file = _wgetenv(L"KEL_BEGUN")) std::ofstream(std::filesystem::path(file)) << "begun\n";
}

int Run(int count, wchar_t** arguments) {
  SayThatItBegan();
  std::filesystem::path holdFile;
  if (count > 2 && std::wstring_view(arguments[1]) == L"--hold") {
    holdFile = arguments[2];
    count -= 2;
    arguments += 2;
  }
  if (count < 3) return Complain(kUnusable, "usage: screen_driver [--hold FILE] PROGRAM SCRIPT [SOURCE...]");
  const std::filesystem::path scriptFile = arguments[2];
  const std::string name = scriptFile.filename().string();
  const auto text = ReadTextFile(scriptFile);
  if (!text) return Complain(kUnusable, name + ": cannot be read");
  Script script = ParseScript(*text);
  if (script.brokenLine != 0) {
    return Complain(kUnusable, name + ":" + std::to_string(script.brokenLine) + ": " + script.problem);
  }

  const std::filesystem::path deviceLog =
      std::filesystem::temp_directory_path() / ("kel_device_" + std::to_string(GetCurrentProcessId()) + ".log");
  SetEnvironmentVariableW(L"KEL_DEVICE_LOG", deviceLog.c_str());
  int status = kRan;
  {
    ProgramDriver driver({arguments[1], CommandLine(count, arguments, 3), deviceLog.wstring()});
    bool isPrinted = true;
    ScriptPlayer player(std::move(script), name, driver, [&](const std::string& line) { isPrinted &= Print(line); });
    auto step = ScriptPlayer::Step::kInput;
    while (step != ScriptPlayer::Step::kFinished) {
      if (step != ScriptPlayer::Step::kRan && !driver.WaitUntilIdle()) break;
      step = player.Next();
    }
    if (!holdFile.empty()) HoldWhileThere(holdFile);
    const std::string& failure = driver.Failure().empty() ? player.Failure() : driver.Failure();
    if (!failure.empty()) status = Complain(driver.TookTooLong() ? kTookTooLong : kScriptFailed, failure);
    if (!isPrinted) status = Complain(kScriptFailed, "what the script says cannot be printed");
  }
  std::error_code error;
  std::filesystem::remove(deviceLog, error);
  return status;
}

}  // namespace
}  // namespace simulator

int wmain(int count, wchar_t** arguments) {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  return simulator::Run(count, arguments);
}
