// Configurations of shapes that nobody means: each command is done in about the time that reading them takes. Where
// each level or line were gone through for each other, none of these tests would end.
#include "authoring/check_run.h"
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

}  // namespace
