#include "platform/process.h"

#include "tests/platform/temporary_root.h"
#include "tests/printing.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using platform::StartProgram;
using Root = tests::TemporaryRoot;
using Installed = platform::host::InstalledEnvironment;

class Recorder : public platform::host::Observer {
 public:
  void Debug(WideStringView) override {}
  void Pulsed(WideStringView) override {}
  void Started(WideStringView program, WideStringView arguments, std::uint32_t result) override {
    record += WideString(program) + u"|" + WideString(arguments) + u"|" + (result == 0 ? u"ok" : u"failed") + u"\n";
  }
  void WarmReset() override {}

  WideString record;
};

// A program that writes its name and arguments into the pipe beside it.
void WriteProgram(const Root& root, const std::string& name) {
  root.Write(name, "#!/bin/sh\nprintf '[%s]' \"$(basename \"$0\")\" \"$@\" > \"$(dirname \"$0\")/out\"\n");
  std::filesystem::permissions(root.Path() / name, std::filesystem::perms::owner_all);
  ASSERT_EQ(0, mkfifo((root.Path() / std::filesystem::path(name).parent_path() / "out").c_str(), 0600));
}

TEST(Process, StartsAProgramWithItsArguments) {
  const Root root;
  WriteProgram(root, "Windows/Tool.exe");
  Recorder recorder;
  auto environment = root.Environment();
  environment.observer = &recorder;
  const Installed installed(std::move(environment));
  EXPECT_EQ(0u, StartProgram(u"tool.EXE", u"/v  \"two words\" \"\" last"));
  EXPECT_EQ("[Tool.exe][/v][two words][][last]", root.Read("Windows/out"));
  EXPECT_EQ(u"tool.EXE|/v  \"two words\" \"\" last|ok\n", recorder.record);
}

TEST(Process, AProgramsNameMayHoldBlanks) {
  const Root root;
  WriteProgram(root, "Program Files/Set up.exe");
  const Installed installed(root.Environment());
  EXPECT_EQ(0u, StartProgram(u"\\Program Files\\Set up.exe", u"now"));
  EXPECT_EQ("[Set up.exe][now]", root.Read("Program Files/out"));
}

TEST(Process, AProgramWithoutAFolderIsLookedForInWindowsAndThenInTheRoot) {
  const Root root;
  WriteProgram(root, "Windows/both.exe");
  WriteProgram(root, "both.exe");
  root.Write("Windows/other.txt", "");
  const Installed installed(root.Environment());
  EXPECT_EQ(0u, StartProgram(u"both.exe", u""));
  EXPECT_EQ("[both.exe]", root.Read("Windows/out"));
  EXPECT_EQ(0u, StartProgram(u"\\both.exe", u""));
  EXPECT_EQ("[both.exe]", root.Read("out"));
  std::filesystem::remove(root.Path() / "Windows/both.exe");
  EXPECT_EQ(0u, StartProgram(u"both.exe", u""));
  EXPECT_EQ("[both.exe]", root.Read("out"));
}

TEST(Process, FailuresHaveTheSystemsCodes) {
  const Root root;
  root.Write("Windows/text.txt", "not a program");
  root.Write("Windows/broken.exe", "not a program either");
  std::filesystem::permissions(root.Path() / "Windows/broken.exe", std::filesystem::perms::owner_all);
  std::filesystem::create_symlink("/bin/true", root.Path() / "outside.exe");
  Recorder recorder;
  auto environment = root.Environment();
  environment.observer = &recorder;
  const Installed installed(std::move(environment));
  EXPECT_EQ(2u, StartProgram(u"missing.exe", u"/v"));
  EXPECT_EQ(2u, StartProgram(u"\\Windows\\missing.exe", u""));
  EXPECT_EQ(3u, StartProgram(u"\\nowhere\\missing.exe", u""));
  EXPECT_EQ(3u, StartProgram(u"", u""));
  EXPECT_EQ(123u, StartProgram(u"\"\\Windows\\missing.exe\"", u""));
  EXPECT_EQ(123u, StartProgram(u"\\nowhere\\what?.exe", u""));
  EXPECT_EQ(193u, StartProgram(u"text.txt", u""));
  EXPECT_EQ(193u, StartProgram(u"broken.exe", u""));
  EXPECT_EQ(193u, StartProgram(u"outside.exe", u""));
  EXPECT_EQ(5u, StartProgram(u"\\Windows", u""));
  EXPECT_TRUE(recorder.record.starts_with(u"missing.exe|/v|failed\n"));
}

TEST(Process, AProgramThatHasEndedLeavesNoEntryBehind) {
  const Root root;
  root.Write("ends.exe", "#!/bin/sh\necho $$ > \"$(dirname \"$0\")/out\"\n");
  std::filesystem::permissions(root.Path() / "ends.exe", std::filesystem::perms::owner_all);
  ASSERT_EQ(0, mkfifo((root.Path() / "out").c_str(), 0600));
  const Installed installed(root.Environment());
  ASSERT_EQ(0u, StartProgram(u"ends.exe", u""));
  const pid_t child = std::stoi(root.Read("out"));
  // Ended children are forgotten by the system: this ends, and would not with one that waits to be collected.
  while (kill(child, 0) == 0) {
  }
  EXPECT_EQ(ESRCH, errno);
}

}  // namespace
