#include "settings/carry_out.h"

#include "tests/settings/plan_of.h"

#include <gtest/gtest.h>

#include <map>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using platform::ResultCode;
using settings::CarriedOut;
using settings::Journal;
using settings::JournalRecord;
using settings::Plan;
using settings::Seal;
using Kind = settings::SetResult::Kind;
using Values = std::map<WideString, WideString>;

// Told before each use of the disk or the device, and after it.
using Step = std::function<bool()>;

class SteppedTarget final : public settings::Target {
 public:
  SteppedTarget(settings::Target& target, Step step, bool countsGets)
      : target_(target), step_(std::move(step)), countsGets_(countsGets) {}

  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return !countsGets_ || step_() ? target_.Get(oid, type, value) : platform::kFailed;
  }
  std::vector<ResultCode> Set(const std::vector<settings::TargetSet>& sets) override {
    if (!step_()) return std::vector<ResultCode>(sets.size(), platform::kFailed);
    auto codes = target_.Set(sets);
    step_();
    return codes;
  }
  std::size_t MostAtOnce(std::size_t all) const override { return target_.MostAtOnce(all); }

 private:
  settings::Target& target_;
  const Step step_;
  const bool countsGets_;
};

// A storage with many settings, one of them a password, in memory where there is such a disk: nothing waits for it.
class ManySettings {
 public:
  explicit ManySettings(std::size_t count) {
    if (fs::is_directory("/dev/shm")) place_ = "/dev/shm";
    place_ /= "kel_carry_out_" + std::to_string(getpid());
    fs::remove_all(place_);
    fs::create_directories(place_);
    std::string menu;
    std::string wanted;
    for (std::size_t i = 0; i < count; ++i) {
      const std::string name = "S" + std::to_string(i);
      const std::string oid = "1.3." + std::to_string(i);
      const bool isSecret = i == 3;
      menu += tests::Entry(name, oid, isSecret ? "Password" : "Octet String");
      device_ += oid + "\tOctet String\told" + std::to_string(i) + "\n";
      wanted += name + ": " + (isSecret ? "!secret X" : "new" + std::to_string(i)) + "\n";
    }
    folder_.WriteMenu(menu).Write("device.txt", device_);
    plan_ =
        tests::PlanOf(folder_.Path(), wanted, {}, [](WideStringView) { return std::optional<WideString>(u"sesame"); });
    EXPECT_EQ(count, plan_.sets.size());
    EXPECT_EQ("", seal_.Load(place_ / "key"));
    before_ = AfterRun([](auto&, auto&) {});
    after_ = before_;
    for (const auto& set : plan_.sets) after_[set.oid] = set.value;
  }
  ~ManySettings() { fs::remove_all(place_); }

  const Plan& Sets() const { return plan_; }
  const Values& Before() const { return before_; }
  const Values& After() const { return after_; }
  const Seal& Key() const { return seal_; }
  fs::path JournalFile() const { return place_ / "journal"; }

  void StartAgain() {
    fs::remove(JournalFile());
    std::ofstream(place_ / "device.txt", std::ios::binary | std::ios::trunc) << device_;
  }

  // Opens device and journal as a program does, and what the device has when it has ended.
  template <typename Run>
  Values AfterRun(Run run) {
    {
      if (!fs::exists(place_ / "device.txt")) StartAgain();
      auto opened = simulator::DeviceStore::Open(place_ / "device.txt");
      EXPECT_EQ("", opened.problem);
      settings::StorageTarget target(*opened.store);
      run(target, *opened.store);
    }
    Values values;
    auto opened = simulator::DeviceStore::Open(place_ / "device.txt");
    for (const auto& line : opened.store->AllLines()) values[line.oid] = line.value;
    return values;
  }

  CarriedOut Apply(settings::Target& target, const Step& step = {}) {
    Journal journal(seal_, step);
    const std::string problem = journal.Create(JournalFile(), {"d", "", {}, false}, plan_.sets);
    if (!problem.empty()) return {{}, problem};
    return CarryOut(plan_.sets, target, journal);
  }
  CarriedOut GoOn(settings::Target& target, bool isUndo) {
    Journal journal(seal_);
    JournalRecord record;
    EXPECT_EQ("", journal.Open(JournalFile(), record));
    if (!record.isWhole) {
      EXPECT_EQ(0u, record.begun);
      if (isUndo) return {};
      fs::remove(JournalFile());
      return Apply(target);
    }
    return isUndo ? Undo(record, target, journal) : Resume(record, target, journal);
  }

 private:
  tests::StorageFolder folder_;
  fs::path place_ = testing::TempDir();
  std::string device_;
  Plan plan_;
  Seal seal_;
  Values before_;
  Values after_;
};

// Ends this process at the step of that number, as a dead battery does; the steps that there are where it does not.
int KilledAt(ManySettings& many, int number) {
  int ends[2] = {};
  if (pipe(ends) != 0) return -1;
  const pid_t child = fork();
  if (child == 0) {
    int steps = 0;
    const Step step = [&] {
      if (++steps == number) _exit(1);
      return true;
    };
    auto opened = simulator::DeviceStore::Open(many.JournalFile().parent_path() / "device.txt");
    settings::StorageTarget storage(*opened.store);
    SteppedTarget target(storage, step, false);
    many.Apply(target, step);
    const bool isTold = write(ends[1], &steps, sizeof steps) == static_cast<ssize_t>(sizeof steps);
    _exit(isTold ? 0 : 2);
  }
  int status = 0;
  waitpid(child, &status, 0);
  int steps = 0;
  const bool hasEnded = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  if (hasEnded && read(ends[0], &steps, sizeof steps) != static_cast<ssize_t>(sizeof steps)) steps = -1;
  close(ends[0]);
  close(ends[1]);
  return steps;
}

void KillAtEveryStep(std::size_t count, int stride) {
  ManySettings many(count);
  int cuts = 0;
  // Two steps that follow each other find the same on disk: after one use of it, and before the next.
  for (const bool isUndo : {false, true}) {
    for (int step = isUndo ? 2 : 1;; step += 2 * stride) {
      many.StartAgain();
      if (KilledAt(many, step) != 0) break;
      ++cuts;
      if (!fs::exists(many.JournalFile())) continue;  // cut before anything was written
      const std::string bytes = *simulator::ReadTextFile(many.JournalFile());
      if (bytes.empty()) continue;
      const Values values = many.AfterRun([&](settings::Target& target, auto&) {
        const CarriedOut carried = many.GoOn(target, isUndo);
        EXPECT_EQ("", carried.problem) << step;
      });
      EXPECT_EQ(isUndo ? many.Before() : many.After(), values) << step;
    }
  }
  EXPECT_GT(cuts, 6);
}

TEST(CarryOut, KilledAtAnyStepItCanBeGoneOnWithAndTakenBack) { KillAtEveryStep(60, KEL_SANITIZED ? 17 : 1); }

TEST(CarryOut, ThousandsAreSetInGroupsAndAsExact) { KillAtEveryStep(KEL_SANITIZED ? 260 : 1100, 1); }

TEST(CarryOut, EachGetAndSetFailsOnceAndTheRestIsDoneLater) {
  ManySettings many(8);
  for (const bool isUndo : {false, true}) {
    for (int failing = 1;; ++failing) {
      many.StartAgain();
      int calls = 0;
      bool hasFailed = false;
      const Values values = many.AfterRun([&](settings::Target& storage, auto&) {
        SteppedTarget target(
            storage, [&] { return ++calls != failing; }, true);
        const CarriedOut carried = many.Apply(target);
        hasFailed = carried.HasFailed();
        if (hasFailed) {
          EXPECT_EQ("the device failed on the way", carried.problem);
          EXPECT_EQ(1, std::count_if(carried.results.begin(), carried.results.end(),
                                     [](const auto& result) { return result.kind == Kind::kFailed; }));
          EXPECT_EQ("", many.GoOn(storage, isUndo).problem);
        }
      });
      EXPECT_EQ(isUndo && hasFailed ? many.Before() : many.After(), values) << failing;
      if (calls < failing) break;
    }
  }
}

TEST(CarryOut, OnAFullDiskNothingIsSetThatTheJournalDoesNotHave) {
  ManySettings many(4);
  for (int full = 1;; ++full) {
    many.StartAgain();
    int writes = 0;
    CarriedOut carried;
    Values values = many.AfterRun(
        [&](settings::Target& target, auto&) { carried = many.Apply(target, [&] { return ++writes < full; }); });
    if (!carried.HasFailed()) break;
    EXPECT_LE(writes, full);
    if (full <= 2) {
      EXPECT_EQ(many.JournalFile().string() + ": cannot be written", carried.problem);
      EXPECT_FALSE(fs::exists(many.JournalFile()));
      EXPECT_EQ(many.Before(), values);
      continue;
    }
    EXPECT_EQ("the journal cannot be written any more", carried.problem);
    values = many.AfterRun([&](settings::Target& target, auto&) { EXPECT_EQ("", many.GoOn(target, true).problem); });
    EXPECT_EQ(many.Before(), values) << full;
  }
}

// Refuses one OID, keeps the old value of another.
class StubbornTarget final : public settings::Target {
 public:
  StubbornTarget(settings::Target& target, WideString refused, WideString kept)
      : target_(target), refused_(std::move(refused)), kept_(std::move(kept)) {}
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return target_.Get(oid, type, value);
  }
  std::vector<ResultCode> Set(const std::vector<settings::TargetSet>& sets) override {
    if (sets.front().oid == refused_) return {platform::kAccessDenied};
    if (sets.front().oid == kept_) return {platform::kOk};
    return target_.Set(sets);
  }
  std::size_t MostAtOnce(std::size_t) const override { return 1; }

 private:
  settings::Target& target_;
  const WideString refused_;
  const WideString kept_;
};

TEST(CarryOut, WhatTheDeviceRefusesOrDoesNotKeepIsReportedAndTheRestGoesOn) {
  ManySettings many(6);
  CarriedOut carried;
  const Values values = many.AfterRun([&](settings::Target& storage, auto&) {
    StubbornTarget target(storage, u"1.3.1", u"1.3.2");
    carried = many.Apply(target);
  });
  EXPECT_EQ("", carried.problem);
  EXPECT_FALSE(carried.IsComplete());
  const Kind kinds[] = {Kind::kDone, Kind::kRefused, Kind::kKeptOld, Kind::kDone, Kind::kDone, Kind::kDone};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(kinds[i], carried.results[i].kind) << i;
  Values expected = many.After();
  expected[u"1.3.1"] = u"old1";
  expected[u"1.3.2"] = u"old2";
  EXPECT_EQ(expected, values);
}

TEST(CarryOut, NothingFollowsFromWhatTheDeviceRefused) {
  std::vector<settings::PlannedSet> sets = {
      {u"1.3.0", u"Integer", u"a", u"old0", settings::PlannedSet::Origin::kAsked, {0}, "A", false},
      {u"1.3.1", u"Integer", u"b", u"old1", settings::PlannedSet::Origin::kFollows, {0}, "B", false},
      {u"1.3.2", u"Integer", u"c", u"old2", settings::PlannedSet::Origin::kCommand, {0, 1}, "C", false}};
  ManySettings many(4);
  many.AfterRun([&](settings::Target& storage, auto&) {
    StubbornTarget target(storage, u"1.3.0", {});
    Journal journal(many.Key());
    ASSERT_EQ("", journal.Create(many.JournalFile(), {}, sets));
    const CarriedOut carried = CarryOut(sets, target, journal);
    EXPECT_EQ(Kind::kRefused, carried.results[0].kind);
    EXPECT_EQ(Kind::kLeftOut, carried.results[1].kind);
    EXPECT_EQ(Kind::kDone, carried.results[2].kind);
  });
}

TEST(CarryOut, TakingBackTellsTheDeviceOnceMore) {
  // The radio takes its settings over when it is told to.
  const std::vector<settings::PlannedSet> sets = {
      {u"1.3.0", u"Integer", u"a", u"old0", settings::PlannedSet::Origin::kAsked, {0}, "A", false},
      {u"1.3.1", u"Integer", u"go", u"old1", settings::PlannedSet::Origin::kCommand, {0}, "C", false}};
  ManySettings many(4);
  std::vector<std::string> log;
  const Values values = many.AfterRun([&](settings::Target& storage, auto&) {
    Journal journal(many.Key());
    ASSERT_EQ("", journal.Create(many.JournalFile(), {}, sets));
    CarryOut(sets, storage, journal);
    class Logged final : public settings::Target {
     public:
      Logged(settings::Target& target, std::vector<std::string>& lines) : target_(target), lines_(lines) {}
      ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
        return target_.Get(oid, type, value);
      }
      std::vector<ResultCode> Set(const std::vector<settings::TargetSet>& all) override {
        for (const auto& set : all) lines_.push_back(base::ToUtf8(set.oid + u"=" + set.value));
        return target_.Set(all);
      }
      std::size_t MostAtOnce(std::size_t) const override { return 1; }

     private:
      settings::Target& target_;
      std::vector<std::string>& lines_;
    } target(storage, log);
    JournalRecord record;
    Journal again(many.Key());
    ASSERT_EQ("", again.Open(many.JournalFile(), record));
    EXPECT_TRUE(Undo(record, target, again).IsComplete());
  });
  EXPECT_EQ((std::vector<std::string>{"1.3.0=old0", "1.3.1=go", "1.3.1=old1"}), log);
  EXPECT_EQ(many.Before(), values);
}

TEST(Journal, IsItsOwnersAloneAndHoldsNoSecret) {
  ManySettings many(5);
  many.AfterRun([&](settings::Target& target, auto&) { EXPECT_TRUE(many.Apply(target).IsComplete()); });
  struct stat file = {};
  ASSERT_EQ(0, stat(many.JournalFile().c_str(), &file));
  EXPECT_EQ(0600u, file.st_mode & 0777);
  const std::string bytes = *simulator::ReadTextFile(many.JournalFile());
  EXPECT_EQ(std::string::npos, bytes.find("sesame"));
  EXPECT_EQ(std::string::npos, bytes.find("old3"));
  JournalRecord record;
  EXPECT_EQ("", ReadJournal(many.JournalFile(), many.Key(), record));
  EXPECT_EQ(u"sesame", record.sets[3].value);
  EXPECT_EQ(u"old3", record.sets[3].before);
  EXPECT_TRUE(record.ended);
  JournalRecord other;
  EXPECT_EQ(many.JournalFile().string() + ":5: its secrets were sealed by another key",
            ReadJournal(many.JournalFile(), Seal(), other));
}

TEST(Journal, ALineThatWasCutShortIsNone) {
  ManySettings many(3);
  many.AfterRun([&](settings::Target& target, auto&) { many.Apply(target); });
  const std::string bytes = *simulator::ReadTextFile(many.JournalFile());
  std::size_t wholeLines = 0;
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    std::ofstream(many.JournalFile(), std::ios::binary | std::ios::trunc) << bytes.substr(0, length);
    JournalRecord record;
    const std::string problem = ReadJournal(many.JournalFile(), many.Key(), record);
    if (length > 0 && bytes[length - 1] == '\n') ++wholeLines;
    EXPECT_EQ(wholeLines == 0, !problem.empty()) << length << problem;
    EXPECT_EQ(wholeLines >= 4, record.isWhole) << length;
    EXPECT_LE(record.codes.size(), record.begun);
  }
  EXPECT_GT(wholeLines, 9u);
  std::ofstream(many.JournalFile(), std::ios::binary | std::ios::trunc) << "{\"kelset\": 2}\n";
  JournalRecord record;
  EXPECT_EQ(many.JournalFile().string() + ":1: this is no journal",
            ReadJournal(many.JournalFile(), many.Key(), record));
}

TEST(PrivateFile, AProgramThatHoldsSecretsLeavesNoCore) {
  const pid_t child = fork();
  if (child == 0) {
    settings::LeaveNoCore();
    rlimit limit = {};
    const bool isNone = getrlimit(RLIMIT_CORE, &limit) == 0 && limit.rlim_max == 0 && prctl(PR_GET_DUMPABLE) == 0;
    _exit(isNone ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(0, status);
}

TEST(Seal, OpensWhatItClosedAndNothingElse) {
  ManySettings many(4);
  const std::string sealed = many.Key().Close("a secret");
  EXPECT_EQ("a secret", many.Key().Open(sealed));
  EXPECT_NE(sealed, many.Key().Close("a secret"));
  for (std::size_t i = 0; i < sealed.size(); i += 7) {
    std::string changed = sealed;
    changed[i] = changed[i] == '0' ? '1' : '0';
    EXPECT_EQ(std::nullopt, many.Key().Open(changed)) << i;
  }
  for (const char* text : {"", "00", "zz", "0123456789"}) EXPECT_EQ(std::nullopt, many.Key().Open(text));
  const fs::path key = many.JournalFile().parent_path() / "key";
  fs::permissions(key, fs::perms::others_read, fs::perm_options::add);
  EXPECT_EQ(key.string() + ": others may read it; it seals secrets in journals", Seal().Load(key));
}

}  // namespace
