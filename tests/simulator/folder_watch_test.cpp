#include "simulator/folder_watch.h"

#include "tests/platform/temporary_root.h"

#include <gtest/gtest.h>

#include <condition_variable>

namespace {

using simulator::FolderWatch;
using simulator::IsReadAtStart;
using simulator::Settling;
using std::chrono::milliseconds;

TEST(Settling, RestsWhenNothingHasHappenedForAMomentOrAfterAll) {
  Settling settling;
  const Settling::Clock::time_point start{};
  EXPECT_FALSE(settling.IsUnderWay());
  settling.Happened(start);
  EXPECT_TRUE(settling.IsUnderWay());
  EXPECT_EQ(Settling::kQuiet, settling.Left(start));
  settling.Happened(start + milliseconds(100));
  EXPECT_EQ(Settling::kQuiet - milliseconds(20), settling.Left(start + Settling::kQuiet));
  EXPECT_EQ(milliseconds(0), settling.Left(start + milliseconds(100) + Settling::kQuiet));
  // Whoever writes on and on is not waited for.
  for (milliseconds at{0}; at < Settling::kLongest; at += milliseconds(50)) settling.Happened(start + at);
  EXPECT_EQ(milliseconds(0), settling.Left(start + Settling::kLongest));
  settling.Rested();
  settling.Happened(start + Settling::kLongest);
  EXPECT_EQ(Settling::kQuiet, settling.Left(start + Settling::kLongest));
}

// Waits for what the system tells, as long as it takes.
class Told {
 public:
  explicit Told(const std::filesystem::path& root)
      : watch(root, [this] {
          const std::lock_guard lock(mutex_);
          ++times_;
          changed_.notify_all();
        }) {}

  // All that was told until this file was among it.
  std::set<std::string> Until(const std::string& file) {
    std::set<std::string> all;
    std::unique_lock lock(mutex_);
    const auto has = [&] {
      all.merge(watch.TakeChanged());
      return all.contains(file);
    };
    EXPECT_TRUE(changed_.wait_for(lock, std::chrono::seconds(60), has)) << file;
    return all;
  }
  int Times() {
    const std::lock_guard lock(mutex_);
    return times_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int times_ = 0;

 public:
  FolderWatch watch;  // last: it ends first
};

TEST(FolderWatch, FilesThatAreWrittenPutInPlaceOrRemovedAreTold) {
  const tests::TemporaryRoot root;
  root.Write("Windows/ovu.xml", "1");
  root.Write("device.txt", "1");
  Told told(root.Path());
  ASSERT_EQ("", told.watch.Problem());
  EXPECT_EQ((std::set<std::string>()), told.watch.TakeChanged());

  root.Write("Windows/ovu.xml", "2");
  EXPECT_EQ((std::set<std::string>{"Windows/ovu.xml"}), told.Until("Windows/ovu.xml"));

  // As editors do that write a new file and give it the name.
  root.Write("Windows/.ovu.xml.swp", "3");
  std::filesystem::rename(root.Path() / "Windows/.ovu.xml.swp", root.Path() / "Windows/ovu.xml");
  told.Until("Windows/ovu.xml");

  std::filesystem::remove(root.Path() / "device.txt");
  EXPECT_EQ((std::set<std::string>{"device.txt"}), told.Until("device.txt"));

  root.Write("new/below/menu.xml", "4");
  told.Until("new/below/menu.xml");
  root.Write("new/below/menu.xml", "5");
  told.Until("new/below/menu.xml");
}

TEST(FolderWatch, SeveralWritesAreToldOfTogether) {
  const tests::TemporaryRoot root;
  Told told(root.Path());
  for (int i = 0; i < 50; ++i) {
    root.Write("a.xml", std::to_string(i));
    root.Write("b.xml", std::to_string(i));
  }
  told.Until("b.xml");
  // Fewer than a machine could be late for.
  EXPECT_GE(10, told.Times());
}

TEST(FolderWatch, AFolderThatIsNotThereIsAProblem) {
  const FolderWatch watch("/nosuch/folder", [] {});
  EXPECT_EQ("/nosuch/folder/: cannot be watched: No such file or directory", watch.Problem());
}

TEST(StorageWatch, OnlyWhatIsReadAtTheStartCounts) {
  const struct {
    const char* file;
    const char* source;
    bool counts;
  } cases[] = {
      {"device.txt", "", true},        {"tables.txt", "", true},   {"registry.reg", "", true},
      {"Windows/ovu.xml", "", true},   {"menus/B.XML", "", true},  {"", "", true},
      {"CfgSettings.txt", "", false},  {"Flash.txt", "", false},   {"Windows/x.exe", "", false},
      {"Windows/ovu.xml~", "", false}, {".hidden.xml", "", false}, {"Windows/.ovu.xml", "", false},
      {"a/device.txt", "", false},     {"m/menu.cfg", "", false},  {"m/menu.cfg", "\\M\\menu.CFG", true},
      {".kelterm.lock", "", false},    {"xml", "", false},
  };
  for (const auto& c : cases) EXPECT_EQ(c.counts, IsReadAtStart(c.file, c.source)) << c.file;
}

}  // namespace
