// The terminal with a small program of its own in it, driven by scripts.
#include "simulator/terminal.h"

#include "platform/controls.h"
#include "platform/debug.h"
#include "platform/dialog.h"
#include "platform/events.h"
#include "platform/kernel.h"
#include "platform/process.h"
#include "simulator/instance_lock.h"
#include "simulator/script_display.h"
#include "tests/platform/temporary_root.h"
#include "tests/printing.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

using namespace simulator;
using platform::WindowHandle;
namespace style = platform::style;

constexpr style::Bits kShown = style::kChild | style::kVisible;
constexpr std::uint32_t kThreadDone = platform::message::kUser + 1;

// A dialog with a field and buttons; its thread has ended when the title says so.
class SmallProgram : public platform::MessageHandler {
 public:
  int Run(WideStringView) {
    ++starts;
    const platform::DialogControl controls[] = {
        {1035, u"Edit", u"", kShown | style::kTabStop, 2, 2, 60, 12},
        {10, u"Button", u"Get", kShown, 2, 20, 30, 12},
        {11, u"Button", u"Reset", kShown, 2, 40, 30, 12},
        {12, u"Button", u"Off", kShown | style::kDisabled, 2, 60, 30, 12},
    };
    platform::DialogTemplate dialog;
    dialog.style = style::kPopup | style::kVisible;
    dialog.width = 100;
    dialog.height = 100;
    dialog.controls = controls;
    platform::RunDialog(dialog, nullptr, *this);
    thread.reset();
    return 0;
  }

  std::optional<platform::LResult> OnMessage(WindowHandle dialog, const platform::Message& message) override {
    if (message.id == platform::message::kInitDialog) {
      platform::SetText(dialog, u"starting");
      thread = std::make_unique<platform::Thread>([dialog] { platform::Post(dialog, kThreadDone); });
      return 1;
    }
    if (message.id == kThreadDone) platform::SetText(dialog, starts == 1 ? u"ready" : u"ready again");
    if (message.id == platform::message::kCommand) OnCommand(dialog, platform::CommandId(message));
    return std::nullopt;
  }

  void OnCommand(WindowHandle dialog, int id) {
    if (id == 2) platform::EndDialog(dialog, 0);
    if (id == 11) platform::WarmReset();
    if (id != 10) return;
    std::optional<WideString> value;
    platform::ConnectSnmpConfig()->Get(u"1.2", u"Integer", value);
    platform::SetText(platform::ControlOf(dialog, 1035), value.value_or(u"none"));
    platform::DebugOutput(u"got it\r\n");
    platform::StartProgram(u"missing.exe", u"/v");
  }

  int starts = 0;
  std::unique_ptr<platform::Thread> thread;
};

struct Result {
  std::string printed;
  std::string failure;
  int starts = 0;
};

Result Play(const tests::TemporaryRoot& root, const std::string& text) {
  Result result;
  LineLog effects;
  DebugLog debug(true);
  SmallProgram program;
  ScriptDisplay display(ParseScript(text), "test.script", effects, debug,
                        [&result](const std::string& printed) { result.printed += printed; });
  Storage storage;
  EXPECT_EQ("", OpenStorage(root.Path(), storage));
  InstanceLock instance(root.Path());
  EXPECT_EQ("", instance.Problem());
  Terminal terminal({storage, instance, effects, debug, display}, 240, 320,
                    [&program](WideStringView commandLine) { return program.Run(commandLine); });
  EXPECT_EQ(0, terminal.Run(u""));
  display.PlayRest();
  result.failure = display.Player().Failure();
  result.starts = program.starts;
  return result;
}

TEST(Terminal, AScriptDrivesTheProgramAndSeesWhatLeavesIt) {
  const tests::TemporaryRoot root;
  root.Write("device.txt", "1.2\tInteger\t55\n");
  const Result result = Play(root,
                             "wait\nkey 7\ndump\nexpect 1035 edit \"7\" selected 1-1\npress "
                             "10\ndump\ndebug\neffects\nkey Esc\ndump\neffects\n");
  EXPECT_EQ("", result.failure);
  const std::string afterTheClick =
      "window \"ready\"\n"
      "  1035 edit \"55\" selected 0-0\n"
      "  10 button \"Get\"\n"
      "  11 button \"Reset\"\n"
      "  12 button \"Off\" (disabled)\n"
      "focus 10\n"
      "got it\n"
      "get 1.2 \"Integer\" -> \"55\"\n"
      "start \"missing.exe\" \"/v\" -> 0x00000002\n"
      "exit 0\n";
  EXPECT_TRUE(result.printed.ends_with(afterTheClick)) << result.printed;
  EXPECT_FALSE(root.Has(".kelterm.lock"));
}

// A device that has one answer for all.
class OtherDevice final : public platform::ISnmpConfig {
 public:
  platform::ResultCode Set(const WideString&, const WideString&, const WideString&) override { return platform::kOk; }
  platform::ResultCode Get(const WideString&, const WideString&, std::optional<WideString>& value) override {
    value = u"elsewhere";
    return platform::kOk;
  }
  platform::ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return Set(oid, type, value);
  }
  platform::ResultCode GetSpecial(const WideString& oid, const WideString& type,
                                  std::optional<WideString>& value) override {
    return Get(oid, type, value);
  }
};

TEST(Terminal, WorksOnADeviceElsewhere) {
  const tests::TemporaryRoot root;
  root.Write("device.txt", "a line that is none");
  LineLog effects;
  DebugLog debug(true);
  SmallProgram program;
  std::string printed;
  ScriptDisplay display(ParseScript("wait\npress 10\neffects\npress 11\nwait\nkey Esc\n"), "test.script", effects,
                        debug, [&printed](const std::string& text) { printed += text; });
  Storage storage;
  EXPECT_EQ("", OpenFiles(root.Path(), storage));
  EXPECT_EQ(nullptr, storage.device);
  const InstanceLock ofTheStorage(root.Path());
  InstanceLock instance(root.Path(), "10.0.0.5:161");
  EXPECT_EQ(0, instance.Other());
  EXPECT_TRUE(root.Has(".kelterm.10.0.0.5:161.lock"));
  int restarts = 0;
  std::vector<std::string> addresses;
  Terminal::Parts parts{storage, instance, effects, debug, display};
  parts.elsewhere = {[] { return std::make_unique<OtherDevice>(); }, "10.0.0.5", [&restarts] { ++restarts; }};
  Terminal terminal(std::move(parts), 240, 320, [&](WideStringView commandLine) {
    addresses.push_back(platform::host::CurrentEnvironment().hostAddress);
    return program.Run(commandLine);
  });
  EXPECT_EQ(0, terminal.Run(u""));
  EXPECT_TRUE(printed.starts_with("get 1.2 \"Integer\" -> \"elsewhere\"\n")) << printed;
  EXPECT_EQ(1, restarts);
  EXPECT_EQ((std::vector<std::string>{"10.0.0.5", "10.0.0.5"}), addresses);
}

TEST(Terminal, AtTheScriptsEndTheProgramIsAskedToQuit) {
  const tests::TemporaryRoot root;
  const Result result = Play(root, "wait\n");
  EXPECT_EQ("", result.failure);
  EXPECT_EQ(1, result.starts);
}

TEST(Terminal, AWarmResetStartsTheProgramAgainAndTheScriptGoesOn) {
  const tests::TemporaryRoot root;
  const Result result = Play(root, "wait\npress 11\nwait\ndump\nexpect window \"ready again\"\nkey Esc\neffects\n");
  EXPECT_EQ("", result.failure);
  EXPECT_EQ(2, result.starts);
  EXPECT_TRUE(result.printed.ends_with("warm reset\nexit 0\n")) << result.printed;
}

TEST(Terminal, OnlyAButtonThatCanBeClickedIsPressed) {
  const tests::TemporaryRoot root;
  for (const char* id : {"12", "1035", "99"}) {
    EXPECT_EQ(std::string("test.script:2: there is no button ") + id + " to click",
              Play(root, std::string("wait\npress ") + id + "\n").failure);
  }
}

TEST(Storage, WhatCannotBeUsedIsOneLineThatNamesIt) {
  const struct {
    const char* file;
    const char* bytes;
    const char* problem;
  } cases[] = {
      {"device.txt", "1.2\n", "device.txt:1: a line is OID, type, value and options, separated by tabs"},
      {"tables.txt", "T\tk\n", "tables.txt:1: a line is table, key and text, separated by tabs"},
      {"registry.reg", "REGEDIT4\n\nx\n", "registry.reg:3: neither a key nor a value"},
  };
  for (const auto& c : cases) {
    const tests::TemporaryRoot root;
    root.Write(c.file, c.bytes);
    Storage storage;
    EXPECT_EQ((root.Path() / c.problem).string(), OpenStorage(root.Path(), storage));
    EXPECT_EQ(c.bytes, root.Read(c.file));
  }
  Storage storage;
  EXPECT_EQ("/nowhere: no such folder", OpenStorage("/nowhere", storage));
}

// Locks are between processes: the other terminal is one of its own, which ends when the pipe closes.
TEST(InstanceLock, AnotherTerminalSeesTheTitlesOfTheFirst) {
  const tests::TemporaryRoot root;
  int ready[2] = {-1, -1};
  int done[2] = {-1, -1};
  ASSERT_EQ(0, pipe(ready));
  ASSERT_EQ(0, pipe(done));
  const pid_t other = fork();
  ASSERT_GE(other, 0);
  char byte = 0;
  if (other == 0) {
    close(done[1]);
    InstanceLock lock(root.Path());
    lock.Publish({u"Error", u"Configuration Utility"});
    bool good = lock.Problem().empty() && lock.Other() == 0 && write(ready[1], "x", 1) == 1;
    good = good && read(done[0], &byte, 1) == 0;
    _exit(good ? 0 : 1);
  }
  close(done[0]);
  ASSERT_EQ(1, read(ready[0], &byte, 1));
  {
    const InstanceLock lock(root.Path());
    EXPECT_EQ(other, lock.Other());
    EXPECT_EQ((std::vector<WideString>{u"Error", u"Configuration Utility"}), lock.OtherTitles());
    lock.BringOtherForward();  // ignored there, since no display asked for it
  }
  EXPECT_TRUE(root.Has(".kelterm.lock"));
  close(done[1]);
  int status = -1;
  ASSERT_EQ(other, waitpid(other, &status, 0));
  EXPECT_EQ(0, status);
  // The process ended without removing its file, as a killed one does.
  const InstanceLock lock(root.Path());
  EXPECT_EQ(0, lock.Other());
  EXPECT_TRUE(lock.OtherTitles().empty());
}

TEST(InstanceLock, AFolderThatIsNotThereIsNamed) {
  EXPECT_EQ("/nowhere: no such folder", InstanceLock("/nowhere").Problem());
}

}  // namespace
