// Configurations of shapes that nobody means: each command is done in about the time that reading them takes. Where
// each level or line were gone through for each other, none of these tests would end.
#include "authoring/check_run.h"
#include "authoring/checks/proofs.h"
#include "authoring/explorer.h"
#include "authoring/manual.h"
#include "base/utf8.h"
#include "tests/authoring/kelconf_run.h"
#include "tests/authoring/storage_folder.h"

#include <algorithm>

namespace {

using tests::RunKelconf;
using tests::StorageFolder;

constexpr std::size_t kLevels = 9'900;  // the tree ends at level 9,999

// Menus of one line each, one within the other; the same line stands in the last.
std::string NestedMenus(const std::string& lastName, const std::string& ofEach = {}) {
  std::string text;
  for (std::size_t i = 0; i < kLevels; ++i) {
    text += "<GROUP name=\"Level" + std::to_string(i) + "\"><DisplayName>Menu</DisplayName>" + ofEach + "\n";
  }
  text += "<GROUP name=\"Last\"><DisplayName>" + lastName + "</DisplayName><OID>1.1</OID><Type>Integer</Type>" +
          "<Range>1-9</Range></GROUP>";
  for (std::size_t i = 0; i < kLevels; ++i) text += "</GROUP>\n";
  return text;
}

constexpr const char* kPathOfTheLast = "Level9898\\Level9899\\Last";

TEST(HostileSizes, DeepMenusAreSearched) {
  StorageFolder folder;
  folder.WriteMenu(NestedMenus("Bottom")).Write("device.txt", "1.1\tInteger\t1\n");
  const auto run = RunKelconf({"find", folder.Path().string(), "bottom"});
  EXPECT_EQ(0, run.status);
  EXPECT_TRUE(run.out.starts_with("1-1-1-")) << run.out;
  EXPECT_NE(std::string::npos, run.out.find(kPathOfTheLast)) << run.out;
  // All of them: what is said of each does not grow with its depth.
  const auto all = RunKelconf({"find", folder.Path().string(), "menu"});
  EXPECT_EQ(static_cast<std::ptrdiff_t>(kLevels), std::count(all.out.begin(), all.out.end(), '\n'));
  EXPECT_LT(all.out.size(), kLevels * 5000);
}

TEST(HostileSizes, DeepMenusAreChecked) {
  StorageFolder folder;
  folder.WriteMenu(NestedMenus("Bottom")).Write("device.txt", "1.1\tInteger\t1\n");
  EXPECT_EQ("", RunKelconf({"check", folder.Path().string()}).out);
  // Of each level something is said.
  folder.WriteMenu(NestedMenus("Bottom", "<Nonsense>1</Nonsense>"));
  const auto found = authoring::CheckConfiguration(*folder.Load());
  ASSERT_LT(900u, found.size());
  for (const auto& finding : found) EXPECT_LT(finding.key.size(), 2000u);
}

TEST(HostileSizes, DeepMenusAreCompared) {
  StorageFolder old;
  old.WriteMenu(NestedMenus("Bottom"));
  StorageFolder renamed;
  renamed.WriteMenu(NestedMenus("Ground"));
  const auto run = RunKelconf({"diff", old.Path().string(), renamed.Path().string()});
  EXPECT_EQ(1, run.status);
  EXPECT_TRUE(run.out.starts_with("...\\Level")) << run.out;
  EXPECT_NE(std::string::npos,
            run.out.find(std::string(kPathOfTheLast) + " is called \"Ground\" instead of \"Bottom\""))
      << run.out;
  EXPECT_EQ(1, std::count(run.out.begin(), run.out.end(), '\n'));
}

// Each menu is there while the one setting that all read is on; so is the line in the last.
constexpr const char* kWhileOn = "<Dependency>IF Switch EQ 1 THEN Display ELSE NoDisplay</Dependency>";
constexpr const char* kSwitch =
    "<GROUP name=\"S\"><DisplayName>Switch</DisplayName><OID>1.2</OID><Type>Bool</Type></GROUP>\n";

std::string MenusWhileOn(std::size_t levels) {
  std::string text = kSwitch;
  for (std::size_t i = 0; i < levels; ++i)
    text += "<GROUP name=\"M\"><DisplayName>Menu</DisplayName>" + std::string(kWhileOn);
  text += "<GROUP name=\"L\"><DisplayName>Last</DisplayName><OID>1.1</OID><Type>Bool</Type>" + std::string(kWhileOn) +
          "</GROUP>";
  for (std::size_t i = 0; i < levels; ++i) text += "</GROUP>\n";
  return text;
}

TEST(HostileSizes, WhatDeepMenusHideIsProvedInStepsThatGrowWithTheirNumber) {
  const auto stepsFor = [](std::size_t levels) {
    StorageFolder folder;
    const auto configuration = folder.WriteMenu(MenusWhileOn(levels)).Load();
    authoring::FollowedTrial trial(*configuration);
    const authoring::Survey survey(*configuration);
    std::vector<authoring::Finding> found;
    authoring::Findings findings(*configuration, found);
    authoring::ProveRules(survey, trial, findings, {});
    EXPECT_TRUE(found.empty());
    return trial.runs;
  };
  EXPECT_LT(stepsFor(2000), stepsFor(1000) * 21 / 10);
}

TEST(HostileSizes, DeepMenusAreExplained) {
  constexpr std::size_t kRuled = 5000;
  StorageFolder folder;
  folder.WriteMenu(MenusWhileOn(kRuled)).Write("device.txt", "1.1\tInteger\t1\n1.2\tInteger\t0\n");
  const auto run = RunKelconf({"why", folder.Path().string(), "Last"});
  EXPECT_EQ(0, run.status);
  EXPECT_NE(std::string::npos, run.out.find("\nTo show it:\n  - set Switch (keys 1) to \"1\"\n"))
      << run.out.substr(0, 3000);
  EXPECT_LT(run.out.size(), kRuled * 1000);
}

TEST(HostileSizes, DeepMenusArePrinted) {
  StorageFolder folder;
  folder.WriteMenu(NestedMenus("Bottom"));
  const auto tree = RunKelconf({"tree", folder.Path().string()});
  EXPECT_NE(std::string::npos, tree.out.find("\n" + std::string(80, ' ') + "1  Menu\n"));
  EXPECT_NE(std::string::npos, tree.out.find("\n" + std::string(80, ' ') + "(41) 1  Menu\n"));
  EXPECT_NE(std::string::npos, tree.out.find("(9901) 1  Bottom  [Integer  1.1]\n"));
  EXPECT_LT(tree.out.size(), kLevels * 150);
}

TEST(HostileSizes, DeepMenusHaveAManual) {
  StorageFolder folder;
  folder.WriteMenu(NestedMenus("Bottom")).Write("device.txt", "1.1\tInteger\t1\n");
  authoring::ManualTerms terms;
  terms.mostKeys = 300;
  const auto manual = authoring::MakeManual(*folder.Load(), terms);
  EXPECT_EQ("", manual.problem);
  EXPECT_NE(std::string::npos, manual.html.find("<h3>Bottom</h3>"));
  EXPECT_NE(std::string::npos, manual.html.find("<p class=\"path\">In &#8230; &#8250; <a "));
  EXPECT_LT(manual.html.size(), kLevels * 4000);
}

TEST(HostileSizes, WhatLiesTooDeepToBePlayedIsCounted) {
  const auto explore = [](std::size_t levels) {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) text += "<GROUP name=\"M\"><DisplayName>M</DisplayName>";
    for (std::size_t i = 0; i < levels; ++i) text += "</GROUP>";
    StorageFolder folder;
    return authoring::Explore(*folder.WriteMenu(text).Load(), {});
  };
  const auto all = explore(authoring::kDeepestGoal);
  EXPECT_EQ(0u, all.tooDeep);
  EXPECT_TRUE(all.IsComplete());
  EXPECT_EQ(authoring::kDeepestGoal, all.reached[static_cast<std::size_t>(authoring::GoalKind::kLine)]);
  const auto some = explore(authoring::kDeepestGoal + 3);
  EXPECT_EQ(3u, some.tooDeep);
  EXPECT_TRUE(some.unreached.empty());
  EXPECT_FALSE(some.IsComplete());
}

}  // namespace
