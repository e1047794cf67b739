#include "simulator/child_program.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

namespace {

using simulator::ChildProgram;

class Done {
 public:
  std::function<void()> Callback() {
    return [this] {
      const std::lock_guard lock(mutex_);
      ++times_;
      changed_.notify_all();
    };
  }
  int Wait() {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, std::chrono::seconds(60), [this] { return times_ > 0; });
    return times_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int times_ = 0;
};

TEST(ChildProgram, PrintsWhatItPrintsOnBothOutputsAndHasNoKeyboard) {
  Done done;
  ChildProgram program({"/bin/sh", "-c", "echo out; echo err >&2; wc -c; echo \"$1\"", "sh", "a b"}, done.Callback());
  EXPECT_EQ(1, done.Wait());
  EXPECT_TRUE(program.IsDone());
  EXPECT_EQ("out\nerr\n0\na b\n", program.Printed());
}

TEST(ChildProgram, OneThatIsNotThereSaysSo) {
  Done done;
  const ChildProgram program({"/nosuch/program"}, done.Callback());
  EXPECT_EQ(1, done.Wait());
  EXPECT_EQ("/nosuch/program: cannot be started", program.Printed());
}

TEST(ChildProgram, OneThatNobodyWaitsForIsEnded) {
  const auto start = std::chrono::steady_clock::now();
  { const ChildProgram program({"/bin/sh", "-c", "exec sleep 100"}, {}); }
  EXPECT_GT(std::chrono::seconds(60), std::chrono::steady_clock::now() - start);
}

TEST(ChildProgram, ProgramsAreFoundBesideThisOneAsInstalledAndAsBuilt) {
  const auto own = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(own, simulator::ProgramBeside(own.filename().string(), "elsewhere"));
  const auto folder = own.parent_path().filename().string();
  EXPECT_EQ("", simulator::ProgramBeside("nosuch", folder));
  EXPECT_EQ("", simulator::ProgramBeside(".", folder));
}

}  // namespace
