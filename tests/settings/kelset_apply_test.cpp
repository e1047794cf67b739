#include "simulator/instance_lock.h"
#include "tests/authoring/storage_folder.h"
#include "tests/settings/kelset_run.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using tests::RunKelset;

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A demonstration terminal of its own, and a state folder.
class OwnTerminal {
 public:
  OwnTerminal() {
    fs::remove(folder_.Path() / "Windows");
    fs::copy(tests::kDemonstration, Root(), fs::copy_options::recursive);
    for (const auto& file : fs::recursive_directory_iterator(Root())) {
      fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
    }
    setenv("XDG_STATE_HOME", (folder_.Path() / "state").c_str(), 1);
  }

  fs::path Root() const { return folder_.Path() / "terminal"; }
  std::string Device() const { return BytesOf(Root() / "device.txt"); }
  std::string File(const std::string& name) const { return (folder_.Path() / name).string(); }
  std::string Write(const std::string& name, std::string_view bytes) {
    folder_.Write(name, bytes);
    fs::permissions(folder_.Path() / name, fs::perms::owner_read | fs::perms::owner_write);
    return File(name);
  }
  tests::KelsetRun Apply(const std::string& settings, std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"apply", Root().string(), Write("s.yaml", settings)});
    return RunKelset(more);
  }

 private:
  tests::StorageFolder folder_;
};

TEST(KelsetApply, SetsReadsBackSaysWhatItDidAndTakesItBack) {
  OwnTerminal terminal;
  const std::string before = RunKelset({"export", terminal.Root().string()}).out;
  const std::string wanted = "Network:\n  Addresses:\n    DHCP: TRUE\n    IP Address: 10.0.0.5\n";
  const std::string journal = terminal.File("a.journal");
  const auto run = terminal.Apply(wanted, {"--journal", journal});
  EXPECT_EQ(0, run.status) << run.errors;
  EXPECT_EQ(
      "set      Network/Addresses/IP Address (1.3.6.1.4.1.4242.10.1.3.0): \"192.168.1.77\" -> \"10.0.0.5\"\n"
      "set      Network/Addresses/DHCP (1.3.6.1.4.1.4242.10.1.2.0): \"0\" -> \"1\"\n"
      "set      1.3.6.1.4.1.4242.10.1.20.0: \"0\" -> \"1\"\n"
      "pulsed ValtorixNetworkChanged\n"
      "the terminal is to be restarted for that; with --restart kelset does it\n"
      "journal " +
          journal + "; \"kelset undo\" with it takes this back\n",
      run.out);
  EXPECT_EQ(0, RunKelset({"verify", terminal.Root().string(), terminal.File("s.yaml")}).status);
  EXPECT_EQ("nothing to set\n", terminal.Apply(wanted).out);
  EXPECT_EQ(2, terminal.Apply("Network:\n  Name: X\n", {"--journal", journal}).status);
  EXPECT_EQ("nothing to do: all of it was done\n", RunKelset({"resume", journal}).out);
  EXPECT_EQ(0, RunKelset({"undo", journal}).status);
  EXPECT_EQ(before, RunKelset({"export", terminal.Root().string()}).out);
  EXPECT_EQ("nothing to do: what this journal says was taken back already\n", RunKelset({"undo", journal}).out);
}

TEST(KelsetApply, WhatWasExportedAppliesToAnotherTerminalAndExportsTheSame) {
  OwnTerminal terminal;
  terminal.Apply("Network:\n  Name: OTHER\nScanner:\n  Options:\n    Timeout: 99\nDisplay & Sound:\n  Brightness: 3\n");
  const std::string exported = RunKelset({"export", terminal.Root().string()}).out;
  OwnTerminal other;
  const auto run = other.Apply(exported);
  EXPECT_EQ(0, run.status) << run.out << run.errors;
  EXPECT_EQ(exported, RunKelset({"export", other.Root().string()}).out);
}

TEST(KelsetApply, ARefusedSettingLeavesTheOthersAndEndsWithOne) {
  OwnTerminal terminal;
  const auto run =
      terminal.Apply("Network:\n  Name: OTHER\n  Host Session:\n    Keep Alive: 5\n", {"--format", "json"});
  EXPECT_EQ(1, run.status);
  const auto json = nlohmann::json::parse(run.out);
  EXPECT_EQ("set", json["sets"][0]["result"]);
  EXPECT_EQ("Value 5 is out of range {0,10-600}", json["refused"][0]["why"]);
  EXPECT_TRUE(fs::exists(json["journal"].get<std::string>()));
  EXPECT_NE(std::string::npos, terminal.Device().find("OTHER"));
}

TEST(KelsetApply, UnusableFilesTouchNothing) {
  OwnTerminal terminal;
  const std::string before = terminal.Device();
  EXPECT_EQ(2, terminal.Apply("Network:\n  Name: X\n  Nmae: Y\n").status);
  EXPECT_EQ(2, terminal.Apply("Network:\n  Name: X\n", {"--journal", terminal.File("no/such/folder")}).status);
  EXPECT_EQ(2, RunKelset({"apply", terminal.Root().string(), terminal.File("nowhere")}).status);
  EXPECT_EQ(2, RunKelset({"undo", terminal.File("nowhere")}).status);
  EXPECT_EQ(2, RunKelset({"undo", terminal.Write("text", "no journal\n")}).status);
  EXPECT_EQ(before, terminal.Device());
}

TEST(KelsetApply, OneTerminalIsWorkedOnByOneProgram) {
  OwnTerminal terminal;
  const std::string before = terminal.Device();
  int ready[2] = {};
  int over[2] = {};
  ASSERT_TRUE(pipe(ready) == 0 && pipe(over) == 0);
  const pid_t other = fork();
  char byte = 0;
  if (other == 0) {
    const simulator::InstanceLock lock(terminal.Root());
    close(over[1]);
    const bool isTold = write(ready[1], "x", 1) == 1 && read(over[0], &byte, 1) == 0;
    _exit(isTold ? 0 : 1);
  }
  ASSERT_EQ(1, read(ready[0], &byte, 1));
  const auto run = terminal.Apply("Network:\n  Name: X\n");
  EXPECT_EQ(4, run.status);
  EXPECT_EQ("kelset: " + terminal.Root().string() + ": process " + std::to_string(other) +
                " works on this terminal; nothing was touched\n",
            run.errors);
  EXPECT_EQ(before, terminal.Device());
  close(over[1]);
  int status = 0;
  waitpid(other, &status, 0);
  EXPECT_EQ(0, terminal.Apply("Network:\n  Name: X\n").status);
  for (const int end : {ready[0], ready[1], over[0]}) close(end);
}

// Every byte that is written anywhere but into the device, which has to know them.
TEST(KelsetApply, NoSecretIsWrittenAnywhere) {
  OwnTerminal terminal;
  const std::string words = terminal.Write("words", "NEW = canary bird\n");
  const std::string wanted =
      "Wireless:\n  Authentication: WPA-PSK\n  Encryption: TKIP\n  Key Value: !secret NEW\n"
      "  Profiles:\n    Profile Key: !secret NEW\nScanner:\n  Options:\n    Timeout: 999\n";
  std::string written;
  const auto note = [&](const tests::KelsetRun& run) { written += run.out + run.errors; };
  const std::string journal = terminal.File("state/j");
  fs::create_directories(terminal.File("state"));
  const std::string root = terminal.Root().string();
  const std::string file = terminal.Write("s.yaml", wanted);
  for (const char* format : {"text", "json"})
    note(RunKelset({"plan", root, file, "--secrets", words, "--format", format}));
  const auto run = RunKelset({"apply", root, file, "--secrets", words, "--journal", journal});
  EXPECT_EQ(1, run.status) << run.errors;
  EXPECT_NE(std::string::npos, run.out.find("Wireless/Key Value (1.2.840.10036.1.3.1.2.2): **** -> ****")) << run.out;
  note(run);
  note(RunKelset({"verify", root, file, "--secrets", words}));
  note(RunKelset({"export", root}));
  EXPECT_NE(std::string::npos, terminal.Device().find("63616e617279"));
  note(RunKelset({"undo", journal}));
  EXPECT_EQ(std::string::npos, terminal.Device().find("63616e617279"));
  EXPECT_NE(std::string::npos, terminal.Device().find("forklifts only"));
  for (const auto& entry : fs::recursive_directory_iterator(terminal.File("state"))) {
    if (entry.is_regular_file()) written += BytesOf(entry.path());
  }
  EXPECT_GT(written.size(), 5000u);
  for (const char* canary : {"canary", "63616e617279", "63616E617279", "forklifts only", "666f726b6c"}) {
    EXPECT_EQ(std::string::npos, written.find(canary)) << canary;
  }
}

}  // namespace
