#include "authoring/explorer.h"

#include "authoring/script_replay.h"
#include "authoring/storage_copy.h"
#include "tests/authoring/kelconf_run.h"
#include "tests/authoring/storage_folder.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace {

using authoring::Exploration;
using authoring::GoalKind;
using tests::RunKelconf;

std::string Property(const std::string& name, const std::string& oid, const std::string& more) {
  return "<GROUP name=\"" + name + "\"><DisplayName>" + name + "</DisplayName><OID>" + oid + "</OID>" + more +
         "</GROUP>\n";
}

// A switch, a line that needs it, and one that needs what no value brings.
void WriteSwitch(tests::StorageFolder& folder) {
  folder.WriteMenu(Property("Switch", "1.1", "<Type>Integer</Type><ChoiceFmt>0#Off|1#On</ChoiceFmt>") +
                   Property("Level", "1.2",
                            "<Type>Integer</Type><Range>1,50</Range><Dependency>IF Switch EQ 1 THEN Display ELSE "
                            "NoDisplay</Dependency>") +
                   Property("Never", "1.3", "<Type>Integer</Type><Dependency>1.1|Integer|7|Display</Dependency>"));
  folder.Write("device.txt", "1.1\tInteger\t0\n1.2\tInteger\t5\n1.3\tInteger\t5\n");
}

std::vector<std::string> UnreachedIds(const Exploration& exploration, bool impossible) {
  std::vector<std::string> ids;
  for (const auto& one : exploration.unreached) {
    if (one.impossible == impossible) ids.push_back(one.goal.Id());
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

TEST(Explorer, ReachesWhatEditsBringAboutAndProvesWhatCannotBe) {
  tests::StorageFolder folder;
  WriteSwitch(folder);
  const Exploration exploration = authoring::Explore(*folder.Load(), {});
  ASSERT_EQ("", exploration.problem);
  EXPECT_EQ(std::vector<std::string>{}, UnreachedIds(exploration, false));
  EXPECT_EQ((std::vector<std::string>{"editor Never", "line Never", "rule Never: Dependency: yes", "save Never"}),
            UnreachedIds(exploration, true));
  EXPECT_TRUE(exploration.IsComplete());
  const auto choices = static_cast<std::size_t>(GoalKind::kChoice);
  EXPECT_EQ(2u, exploration.reached[choices]);
  // The value out of range was typed too.
  const auto alerts = static_cast<std::size_t>(GoalKind::kAlert);
  EXPECT_EQ(1u, exploration.reached[alerts]);
}

TEST(Explorer, ItsScriptsPlayAgainAndFindTheSame) {
  tests::StorageFolder folder;
  WriteSwitch(folder);
  const auto configuration = folder.Load();
  const Exploration exploration = authoring::Explore(*configuration, {});
  ASSERT_LE(2u, exploration.scripts.size());
  const authoring::StorageCopy copy(*configuration);
  for (const auto& script : exploration.scripts) {
    EXPECT_FALSE(script.findings.empty());
    const auto once = authoring::PlayScript({copy.Fresh(), {}}, script.text, script.name);
    const auto twice = authoring::PlayScript({copy.Fresh(), {}}, script.text, script.name);
    EXPECT_EQ("", once.problem);
    EXPECT_NE("", once.printed);
    EXPECT_EQ(once.printed, twice.printed);
  }
}

TEST(Explorer, StopsWhenItsKeysAreUsedUp) {
  tests::StorageFolder folder;
  WriteSwitch(folder);
  authoring::ExploreTerms terms;
  terms.mostKeys = 3;
  const Exploration exploration = authoring::Explore(*folder.Load(), terms);
  EXPECT_TRUE(exploration.usedUp);
  EXPECT_EQ(3u, exploration.keys);
  EXPECT_FALSE(exploration.IsComplete());
}

TEST(Explorer, StartsNoProgramAndLeavesTheStorageAsItWas) {
  tests::StorageFolder folder;
  const std::string trace = (folder.Path() / "trace").string();
  folder.WriteMenu("<GROUP name=\"Run\"><DisplayName>Run</DisplayName><AppName>Run.exe</AppName></GROUP>" +
                   Property("Switch", "1.1", "<Type>Integer</Type><ChoiceFmt>0#Off|1#On</ChoiceFmt>"));
  const std::string device = "1.1\tInteger\t0\n";
  folder.Write("device.txt", device).Write("Windows/Run.exe", "#!/bin/sh\ntouch " + trace + "\n");
  std::filesystem::permissions(folder.Path() / "Windows/Run.exe", std::filesystem::perms::owner_all);
  const Exploration exploration = authoring::Explore(*folder.Load(), {});
  EXPECT_TRUE(exploration.IsComplete());
  EXPECT_FALSE(std::filesystem::exists(trace));
  std::ifstream file(folder.Path() / "device.txt", std::ios::binary);
  EXPECT_EQ(device, std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(Explorer, ReachesAllOfTheDemonstrationThatIsNotImpossible) {
  const auto configuration = authoring::Configuration::Load(tests::kDemonstration).configuration;
  const Exploration exploration = authoring::Explore(*configuration, {});
  EXPECT_EQ(std::vector<std::string>{}, UnreachedIds(exploration, false));
  // The lock is always on; the certificates' value is one of two choices, and so never empty.
  EXPECT_EQ((std::vector<std::string>{"editor Security\\UsbLock", "rule Security\\UsbLock: Dependency: no",
                                      "rule Tools\\Certificates: Dependency: yes", "save Security\\UsbLock"}),
            UnreachedIds(exploration, true));
}

TEST(KelconfExplore, WritesScriptsAndComparesWithThem) {
  tests::StorageFolder folder;
  WriteSwitch(folder);
  const std::string root = folder.Path().string();
  tests::StorageFolder scripts;
  const std::string target = (scripts.Path() / "made").string();
  const auto written = RunKelconf({"explore", root, "--scripts", target, "--format", "json"});
  EXPECT_EQ(0, written.status) << written.errors;
  EXPECT_EQ(true, nlohmann::json::parse(written.out)["complete"]);
  const auto same = RunKelconf({"explore", root, "--expect", target});
  EXPECT_EQ(0, same.status) << same.out;
  EXPECT_NE(std::string::npos, same.out.find("0 differ"));

  folder.Write("device.txt", "1.1\tInteger\t1\n1.2\tInteger\t5\n1.3\tInteger\t5\n");
  const auto changed = RunKelconf({"explore", root, "--expect", target});
  EXPECT_EQ(1, changed.status);
  EXPECT_NE(std::string::npos, changed.out.find("explore001.script: line ")) << changed.out;
  EXPECT_EQ(2, RunKelconf({"explore", root, "--expect", root}).status);
}

TEST(ScriptReplay, TheFirstDifferenceIsSaidInWords) {
  EXPECT_EQ("", authoring::FirstDifference("a\nb\n", "a\nb\n"));
  EXPECT_EQ("line 2 was \"b\", is \"c\"", authoring::FirstDifference("a\nb\n", "a\nc\n"));
  EXPECT_EQ("line 2 was \"(the end)\", is \"c\"", authoring::FirstDifference("a\n", "a\nc\n"));
}

}  // namespace
