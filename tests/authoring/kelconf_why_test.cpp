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
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"A\"><DisplayName>Speed</DisplayName></GROUP>"
      "<GROUP name=\"B\"><DisplayName>Speed</DisplayName></GROUP>");
  const auto run = RunKelconf({"why", folder.Path().string(), "Speed"});
  EXPECT_EQ(1, run.status);
  EXPECT_EQ("kelconf: \"Speed\" may be one of these:\n  A  Speed\n  B  Speed\n", run.errors);
  EXPECT_EQ("", run.out);
}

TEST(KelconfWhy, SaysWhichEntryMayHaveBeenMeant) {
  const struct {
    const char* entry;
    const char* answer;
  } cases[] = {
      // Even of one alone it is not guessed that it was meant.
      {"power sav", "there is no entry \"power sav\"; it is part of:\n  Wireless\\Radio\\PowerSaving  Power Saving\n"},
      {"Chanel", "there is no entry \"Chanel\"; the nearest is:\n  Wireless\\Radio\\Channel  Channel\n"},
      {"Network\\Adresses\\Dhcp",
       "there is no entry \"Network\\Adresses\\Dhcp\"; the nearest is:\n  Network\\Addresses\\Dhcp  DHCP\n"},
      {"Warp Drive", "there is no entry \"Warp Drive\"\n"},
      {"", "there is no entry \"\"\n"},
  };
  for (const auto& c : cases) {
    const auto run = RunKelconf({"why", tests::kDemonstration.string(), c.entry});
    EXPECT_EQ(1, run.status);
    EXPECT_EQ(std::string("kelconf: ") + c.answer, run.errors);
    EXPECT_EQ("", run.out);
  }
}

TEST(KelconfWhy, CutsALongListOfWhatMayHaveBeenMeant) {
  tests::StorageFolder folder;
  std::string groups;
  for (int i = 1; i <= 23; ++i) {
    const std::string n = std::to_string(i);
    groups += "<GROUP name=\"E" + n + "\"><DisplayName>Entry " + n + "</DisplayName></GROUP>";
  }
  folder.WriteMenu(groups);
  const auto run = RunKelconf({"why", folder.Path().string(), "entry"});
  EXPECT_NE(std::string::npos, run.errors.find("  E20  Entry 20\n  and 3 more\n")) << run.errors;
  EXPECT_EQ(std::string::npos, run.errors.find("Entry 21")) << run.errors;
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
