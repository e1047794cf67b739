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

TEST(Explorer, SavesASwitchWhicheverWayItStands) {
  tests::StorageFolder folder;
  folder.WriteMenu(Property("On", "1.1", "<Type>Bool</Type>") + Property("Off", "1.2", "<Type>Bool</Type>"));
  folder.Write("device.txt", "1.1\tBool\t1\n1.2\tBool\t0\n");
  const Exploration exploration = authoring::Explore(*folder.Load(), {});
  EXPECT_EQ(2u, exploration.reached[static_cast<std::size_t>(GoalKind::kSave)]);
  EXPECT_TRUE(exploration.IsComplete());
}

std::string Choice(const std::string& name, const std::string& oid, const std::string& rule) {
  return Property(name, oid,
                  "<Type>Integer</Type><ChoiceFmt>0#Off|1#On</ChoiceFmt><Dependency>" + rule + "</Dependency>");
}

std::string Menu(const std::string& rule, const std::string& lines) {
  return "<GROUP name=\"Menu\"><DisplayName>Menu</DisplayName><Dependency>" + rule + "</Dependency>" + lines +
         "</GROUP>\n";
}

TEST(Explorer, ProvesOnlyWhatNoValuesOfAllThatIsReadOnTheWayBringAbout) {
  const std::string switches = Choice("A", "1.1", "Empty||x|NoEdit") + Choice("B", "1.2", "Empty||x|NoEdit");
  const std::string other = Choice("Y", "1.4", "Empty||x|NoEdit");
  const std::string needsA = Choice("X", "1.3", "IF A EQ 0 THEN NoDisplay");
  const struct {
    const char* what;
    std::string menus;
    bool impossible;
  } cases[] = {
      {"the other switch keeps the menu open", switches + Menu("IF A EQ 1 AND B EQ 0 THEN NoDisplay", needsA + other),
       false},
      {"what the line needs closes the menu", switches + Menu("IF A EQ 1 THEN NoDisplay", needsA + other), true},
      {"but it can be set once one is inside",
       Menu("IF A EQ 1 THEN NoDisplay", Choice("A", "1.1", "Empty||x|NoEdit") + needsA + other), false},
  };
  for (const auto& c : cases) {
    tests::StorageFolder folder;
    folder.WriteMenu(c.menus).Write("device.txt",
                                    "1.1\tInteger\t0\n1.2\tInteger\t0\n1.3\tInteger\t0\n1.4\tInteger\t0\n");
    const auto impossible = UnreachedIds(authoring::Explore(*folder.Load(), {}), true);
    EXPECT_EQ(c.impossible, std::count(impossible.begin(), impossible.end(), "line Menu\\X") == 1) << c.what;
    EXPECT_EQ(0, std::count(impossible.begin(), impossible.end(), "line Menu\\Y")) << c.what;
  }
}

TEST(Explorer, SaysWhyItIsNotDecidedWhetherALineCanBe) {
  std::string menus;
  std::string condition;
  for (int i = 0; i < 13; ++i) {
    const std::string name = "S" + std::to_string(i);
    menus += Property(name, "1.1" + std::to_string(i), "<Type>Integer</Type><ChoiceFmt>0#Off|1#On</ChoiceFmt>");
    condition += (i == 0 ? "IF " : " AND ") + name + " EQ 0";
  }
  tests::StorageFolder folder;
  std::string device = "1.9\tInteger\t0\n";
  for (int i = 0; i < 13; ++i) device += "1.1" + std::to_string(i) + "\tInteger\t1\n";
  folder.WriteMenu(
      menus + Property("X", "1.9",
                       "<Type>Integer</Type><Dependency>" + condition + " THEN Display ELSE NoDisplay</Dependency>"));
  folder.Write("device.txt", device);
  authoring::ExploreTerms terms;
  terms.mostKeys = 2000;
  const Exploration exploration = authoring::Explore(*folder.Load(), terms);
  ASSERT_FALSE(exploration.usedUp);
  const auto line = std::find_if(exploration.unreached.begin(), exploration.unreached.end(),
                                 [](const auto& one) { return one.goal.Id() == "line X"; });
  ASSERT_NE(exploration.unreached.end(), line);
  EXPECT_FALSE(line->impossible);
  EXPECT_EQ("no way was found; not decided: the rules read 13 values with more than 4096 cases", line->reason);
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
  // The lock is always on.
  EXPECT_EQ((std::vector<std::string>{"editor Security\\UsbLock", "rule Security\\UsbLock: Dependency: no",
                                      "save Security\\UsbLock"}),
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
