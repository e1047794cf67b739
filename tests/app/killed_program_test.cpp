// The real kelterm as a process: killed while it stores, on a disk that is full, and with a storage it cannot use.
#include "tests/platform/temporary_root.h"

#include "simulator/storage.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace tests {
namespace {

constexpr const char* kOld = "old settings";

// A process whose output is read through a pipe.
class Process {
 public:
  explicit Process(std::vector<std::string> arguments) {
    int pipeEnds[2] = {-1, -1};
    EXPECT_EQ(0, pipe2(pipeEnds, O_CLOEXEC));
    output_ = pipeEnds[0];
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, pipeEnds[1], STDERR_FILENO);
    signal(SIGCHLD, SIG_DFL);
    EXPECT_EQ(0, posix_spawn(&child_, pointers.front(), &files, nullptr, pointers.data(), environ));
    posix_spawn_file_actions_destroy(&files);
    close(pipeEnds[1]);
  }
  ~Process() { close(output_); }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // Less when it has ended before.
  std::string Read(std::size_t length) {
    std::string text(length, '\0');
    std::size_t got = 0;
    for (ssize_t more = 1; got < length && more > 0; got += static_cast<std::size_t>(more)) {
      more = read(output_, text.data() + got, length - got);
      if (more < 0) break;
    }
    text.resize(got);
    return text;
  }
  void Kill() { kill(child_, SIGKILL); }
  // Its exit status, or -1 when it was killed.
  int Wait() {
    int status = 0;
    waitpid(child_, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  int output_ = -1;
  pid_t child_ = -1;
};

class RealTerminal : public ::testing::Test {
 protected:
  void SetUp() override {
    root.Write("Windows/ovu.xml",
               "<GROUP name=\"R\"><DisplayName>Main</DisplayName><GROUP name=\"Text\"><DisplayName>Text</DisplayName>"
               "<OID>1.1</OID><Type>Octet String</Type></GROUP><GROUP name=\"Store\"><DisplayName>Store</DisplayName>"
               "<Function>StoreConfig</Function></GROUP></GROUP>");
    root.Write("device.txt", "1.1\tOctet String\t" + Value(0) + "\n");
    root.Write("CfgSettings.txt", kOld);
  }

  // Texts that can be told from their halves.
  static std::string Value(int number) { return std::string(300, static_cast<char>('a' + number % 26)); }

  std::string Terminal() const { return KEL_TERMINAL; }

  // What is stored is one of the values, and the settings file the old one or complete.
  void ExpectWholeStorage() const {
    simulator::Storage storage;
    ASSERT_EQ("", simulator::OpenStorage(root.Path(), storage));
    std::optional<WideString> value;
    ASSERT_EQ(platform::kOk, storage.device->Get(u"1.1", value));
    ASSERT_EQ(300U, value->size());
    EXPECT_EQ(WideString(300, value->front()), *value);
    const std::string settings = root.Read("CfgSettings.txt");
    const std::string end("<\0\\\0T\0a\0g\0>\0", 12);
    EXPECT_TRUE(settings == kOld || settings.ends_with(end));
  }

  TemporaryRoot root;
};

TEST_F(RealTerminal, LeavesTheStorageWholeWhenItIsKilledWhileStoring) {
  std::string script = "wait\n";
  for (int i = 1; i <= 60; ++i) script += "key 1\ntype " + Value(i) + "\nkey Enter 2\neffects\n";
  root.Write("play.script", script);
  std::size_t finished = 0;
  for (std::size_t round = 0; round < 15; ++round) {
    Process terminal({Terminal(), "--root", root.Path().string(), "--script", (root.Path() / "play.script").string()});
    // It is killed after as much output as it pleases the round, wherever that finds it.
    const std::size_t wanted = 200 + round * 977;
    finished += terminal.Read(wanted).size() < wanted ? 1 : 0;
    terminal.Kill();
    terminal.Wait();
    ExpectWholeStorage();
  }
  EXPECT_LT(finished, 5U);
}

TEST_F(RealTerminal, SaysThatAChangeWasNotSavedWhenTheDiskIsFull) {
  // The limit of a file's size stands for the disk: device.txt has reached it.
  std::string padding;
  while (padding.size() < 1500) padding += "# the disk is full\n";
  root.Write("device.txt", root.Read("device.txt") + padding);
  root.Write("play.script", "wait\nkey 1\ntype " + Value(1) + "\nkey Enter\ndump\nkey Enter 2\ndump\n");
  Process terminal({"/bin/sh", "-c", "trap '' XFSZ; ulimit -f 1; exec \"$0\" \"$@\"", Terminal(), "--root",
                    root.Path().string(), "--script", (root.Path() / "play.script").string()});
  const std::string output = terminal.Read(1'000'000);
  EXPECT_EQ(0, terminal.Wait()) << output;
  EXPECT_NE(std::string::npos, output.find("An error occurred.  Change was not saved.")) << output;
  ExpectWholeStorage();
  EXPECT_NE(std::string::npos, root.Read("device.txt").find(Value(0)));
}

TEST_F(RealTerminal, EndsWithOneLineForAStorageThatItCannotUse) {
  root.Write("device.txt", "1.1\tOctet String\n");
  const std::string cases[] = {root.Path().string(), "/proc/self", (root.Path() / "none").string()};
  for (const std::string& storage : cases) {
    Process terminal({Terminal(), "--root", storage, "--display", "none"});
    const std::string output = terminal.Read(100'000);
    EXPECT_EQ(2, terminal.Wait()) << storage;
    EXPECT_TRUE(output.starts_with("kelterm: ")) << output;
    EXPECT_EQ(output.size() - 1, output.find('\n')) << output;
  }
}

}  // namespace
}  // namespace tests
