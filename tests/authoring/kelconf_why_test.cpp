#include "tests/authoring/kelconf_run.h"
#include "tests/authoring/storage_folder.h"

#include <nlohmann/json.hpp>

namespace {

using tests::RunKelconf;

TEST(KelconfWhy, ExplainsALineInWordsAndAsJson) {
  const std::string demonstration = tests::kDemonstration.string();
  const auto text = RunKelconf({"why", demonstration, "Channel"});
  EXPECT_EQ(0, text.status);
  EXPECT_NE(std::string::npos, text.out.find("set Mode (keys 2-2) to Ad hoc (2)")) << text.out;

  const auto json = nlohmann::json::parse(RunKelconf({"why", demonstration, "Channel", "--format", "json"}).out);
  EXPECT_EQ("hidden", json["state"]);
  EXPECT_EQ("Dependency", json["decidedBy"]);
  EXPECT_EQ("2", json["wishes"][0]["ways"][0][0]["value"]);
}

TEST(KelconfWhy, NamesTheHiddenLinesBesideItWhenAsked) {
  const std::string demonstration = tests::kDemonstration.string();
  const std::string heading = "Hidden lines of the menu it is in:\n  Key Index  hidden, by the wireless rules\n";
  const auto asked = RunKelconf({"why", "--menu", demonstration, "Wireless\\Authentication"});
  EXPECT_NE(std::string::npos, asked.out.find(heading)) << asked.out;
  EXPECT_EQ(std::string::npos, RunKelconf({"why", demonstration, "Wireless\\Authentication"}).out.find("Hidden lines"));
}

TEST(KelconfWhy, ListsTheCandidatesOfAnAmbiguousEntry) {
  const auto run = RunKelconf({"why", tests::kDemonstration.string(), "Port Use"});
  const auto unknown = RunKelconf({"why", tests::kDemonstration.string(), "Warp Drive"});
  EXPECT_EQ(1, unknown.status);
  EXPECT_EQ("kelconf: there is no entry Warp Drive\n", unknown.errors);
  EXPECT_EQ("", unknown.out);
  EXPECT_EQ(1, run.status);
}

TEST(KelconfWhy, LeavesTheStorageAsItWas) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP "
      "name=\"a\"><DisplayName>a</DisplayName><OID>1.1</OID><Type>Integer</Type><ChoiceFmt>1#One|2#Two</ChoiceFmt>"
      "<Dependency>IF a EQ 1 THEN \"ChoiceFmt=2#Two:2\"</Dependency></GROUP>");
  const std::string device = "1.1\tInteger\t1\n";
  folder.Write("device.txt", device);
  EXPECT_EQ(0, RunKelconf({"why", folder.Path().string(), "a"}).status);
  std::ifstream file(folder.Path() / "device.txt", std::ios::binary);
  EXPECT_EQ(device, std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace
