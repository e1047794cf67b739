#include "tests/authoring/kelconf_run.h"
#include "tests/authoring/storage_folder.h"

#include <nlohmann/json.hpp>

namespace {

using tests::KelconfRun;
using tests::RunKelconf;

TEST(Kelconf, TreeShowsEachLineWithItsTypeOidAndRules) {
  const KelconfRun run = RunKelconf({"tree", tests::kSmallExample.string()});
  EXPECT_EQ(0, run.status);
  EXPECT_EQ(
      "My Terminal\n"
      "  1  Screen\n"
      "    1  Light  [Integer  1.3.6.1.4.1.4242.10.4.1.0]\n"
      "    2  Light Time  [Integer  1.3.6.1.4.1.4242.10.4.2.0]\n"
      "         IF Light EQ 0 THEN NoDisplay\n",
      run.out);
  EXPECT_EQ("", run.errors);
}

TEST(Kelconf, TreeGivesTheSameAsJson) {
  const auto json = nlohmann::json::parse(RunKelconf({"tree", tests::kSmallExample.string(), "--format", "json"}).out);
  ASSERT_EQ(4u, json.size());
  EXPECT_EQ("Screen\\Time", json[3]["path"]);
  EXPECT_EQ("IF Light EQ 0 THEN NoDisplay", json[3]["rules"][0]);
  EXPECT_EQ(7, json[3]["line"]);
}

TEST(Kelconf, HelpIsThereAndWhatCannotBeUsedIsTwo) {
  const KelconfRun help = RunKelconf({"tree", "--help"});
  EXPECT_EQ(0, help.status);
  EXPECT_NE(std::string::npos, help.out.find("Example: kelconf tree"));
  EXPECT_EQ(2, RunKelconf({}).status);
  EXPECT_EQ(2, RunKelconf({"tree"}).status);
  EXPECT_EQ(2, RunKelconf({"tree", "nowhere"}).status);
  EXPECT_EQ(2, RunKelconf({"tree", tests::kSmallExample.string(), "--format", "yaml"}).status);
  EXPECT_EQ(2, RunKelconf({"teer"}).status);
}

}  // namespace
