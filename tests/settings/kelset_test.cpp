#include "tests/settings/kelset_run.h"

#include "tests/authoring/storage_folder.h"

#include <nlohmann/json.hpp>

namespace {

using tests::RunKelset;

std::string FileOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Kelset, ExportShowsWhatEachSettingTakesAndNoSecret) {
  const auto run = RunKelset({"export", tests::kSmallExample.string()});
  EXPECT_EQ(0, run.status);
  EXPECT_EQ(
      "# Settings, by the menus and names on the screen. Values are as the screen shows them; \"!raw 0\" is as the\n"
      "# device has it, \"!default\" the factory value, \"!secret NAME\" a secret. What does not stand here stays.\n"
      "\n"
      "Screen:\n"
      "  # Integer: Off, On\n"
      "  Light: On\n"
      "  # Integer, 5-600\n"
      "  Light Time: 30\n",
      run.out);
  const std::string all = RunKelset({"export", tests::kDemonstration.string()}).out;
  EXPECT_NE(std::string::npos, all.find("  # Key Value: !secret NAME\n"));
  for (const char* secret : {"changeme", "forklift-fleet", "forklifts only", "407700"}) {
    EXPECT_EQ(std::string::npos, all.find(secret)) << secret;
  }
}

TEST(Kelset, WhatWasExportedAsksForNothingNew) {
  for (const auto& example : {tests::kDemonstration, tests::kSmallExample, tests::kForklift}) {
    tests::StorageFolder folder;
    const std::string file = (folder.Path() / "s.yaml").string();
    EXPECT_EQ(0, RunKelset({"export", example.string(), "-o", file}).status);
    EXPECT_EQ(FileOf(file), RunKelset({"export", example.string()}).out);
    const auto plan = RunKelset({"plan", example.string(), file});
    EXPECT_EQ("nothing to set\n", plan.out);
    EXPECT_EQ(0, plan.status) << plan.errors;
    EXPECT_EQ(0, RunKelset({"verify", example.string(), file}).status);
  }
}

TEST(Kelset, OddNamesAndValuesAreExportedSoThatTheyReadBack) {
  tests::StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"M\"><DisplayName>A: \"menu\" #1</DisplayName>"
      "<GROUP name=\"a\"><DisplayName>same</DisplayName><OID>1.1</OID><Type>Octet String</Type></GROUP>"
      "<GROUP name=\"b\"><DisplayName>same</DisplayName><OID>1.2</OID><Type>Octet String</Type></GROUP>"
      "<GROUP name=\"c\"><DisplayName>null</DisplayName><OID>1.3</OID><Type>Octet String</Type></GROUP>"
      "<GROUP name=\"d\"><DisplayName>Dup</DisplayName><OID>1.4</OID><Type>Integer</Type>"
      "<ChoiceFmt>1#A|2#A</ChoiceFmt></GROUP>"
      "<GROUP name=\"e\"><DisplayName>Negative</DisplayName><OID>1.5</OID><Type>Integer</Type></GROUP>"
      "<GROUP name=\"s\"><DisplayName>Secrets</DisplayName><GROUP name=\"p\"><DisplayName>Word</DisplayName>"
      "<OID>1.6</OID><Type>Password</Type></GROUP></GROUP>"
      "</GROUP>");
  folder.Write("device.txt",
               "1.1\tOctet String\ttwo\\nlines\n1.2\tOctet String\t~\n1.3\tOctet String\t\n1.4\tInteger\t2\n"
               "1.5\tInteger\t-7\n1.6\tPassword\tsesame\n");
  const std::string text = RunKelset({"export", folder.Path().string()}).out;
  EXPECT_NE(std::string::npos, text.find("\n\"A: \\\"menu\\\" #1\":\n")) << text;
  EXPECT_NE(std::string::npos, text.find("\n1.1: !raw \"two\\u000Alines\"\n")) << text;
  EXPECT_NE(std::string::npos, text.find("  Dup: !raw 2\n")) << text;
  EXPECT_EQ(std::string::npos, text.find("sesame"));
  folder.Write("s.yaml", text);
  const auto plan = RunKelset({"plan", folder.Path().string(), (folder.Path() / "s.yaml").string()});
  EXPECT_EQ("nothing to set\n", plan.out) << plan.errors;
}

TEST(Kelset, SlipsOfTheFileAreAllNamedAndNothingIsPlanned) {
  tests::StorageFolder folder;
  folder.Write("s.yaml",
               "Screen:\n  Ligth: On\n  Light: On\n1.3.6.1.4.1.4242.10.4.1.0: Off\nScreen2:\n  A: 1\nScreen/Light:\n");
  const std::string file = (folder.Path() / "s.yaml").string();
  const auto run = RunKelset({"plan", tests::kSmallExample.string(), file});
  EXPECT_EQ(2, run.status);
  EXPECT_EQ("", run.out);
  EXPECT_EQ("kelset: " + file + ":2:3: there is no \"Ligth\" in \"Screen\"\n" + "kelset: " + file +
                ":4:1: \"Screen/Light\" is set already, at " + file + ":3:3\n" + "kelset: " + file +
                ":6:3: there is no \"Screen2\" in the main menu\n" + "kelset: " + file +
                ":7:1: there is no \"Screen/Light\" in the main menu\n",
            run.errors);
}

TEST(Kelset, SecretsComeFromAFileThatIsItsOwnersAlone) {
  tests::StorageFolder folder;
  folder.Write("s.yaml", "Wireless:\n  Profiles:\n    Profile Key: !secret WPA\n")
      .Write("words", "WPA = correct horse\n");
  folder.Write("open.yaml", "Wireless:\n  Profiles:\n    Profile Key: correct horse\n");
  const std::string demonstration = tests::kDemonstration.string();
  const std::string file = (folder.Path() / "s.yaml").string();
  const std::string words = (folder.Path() / "words").string();
  const auto without = RunKelset({"plan", demonstration, file});
  EXPECT_EQ(2, without.status);
  EXPECT_NE(std::string::npos, without.errors.find("give it by --secrets FILE or as KELSET_SECRET_WPA"));
  namespace fs = std::filesystem;
  fs::permissions(words, fs::perms::owner_read | fs::perms::group_read);
  const auto readable = RunKelset({"plan", demonstration, file, "--secrets", words});
  EXPECT_EQ(2, readable.status);
  EXPECT_EQ("kelset: " + words + ": others may read it; chmod 600 makes it its owner's alone\n", readable.errors);
  fs::permissions(words, fs::perms::owner_read | fs::perms::owner_write);
  for (const char* format : {"text", "json"}) {
    const auto run = RunKelset({"plan", demonstration, file, "--secrets", words, "--format", format});
    EXPECT_EQ(0, run.status) << run.errors;
    EXPECT_NE(std::string::npos, run.out.find("Profile Key"));
    for (const char* secret : {"correct horse", "636f7272656374", "forklifts only"}) {
      EXPECT_EQ(std::string::npos, run.out.find(secret)) << run.out;
    }
  }
  const auto open = RunKelset({"plan", demonstration, (folder.Path() / "open.yaml").string()});
  EXPECT_EQ(2, open.status);
  EXPECT_NE(std::string::npos, open.errors.find("is a secret: write \"!secret NAME\"")) << open.errors;
  EXPECT_EQ(std::string::npos, open.errors.find("correct horse"));
}

TEST(Kelset, VerifyNamesWhatDiffers) {
  tests::StorageFolder folder;
  folder.Write("s.yaml", "Screen:\n  Light: Off\n  Light Time: 30\n");
  const std::string file = (folder.Path() / "s.yaml").string();
  const auto run = RunKelset({"verify", tests::kSmallExample.string(), file});
  EXPECT_EQ(1, run.status);
  EXPECT_EQ("differs  Screen/Light (" + file + ":2:3): it is \"On\"\n1 of 2 as wanted\n", run.out);
  const auto json =
      nlohmann::json::parse(RunKelset({"verify", tests::kSmallExample.string(), file, "--format", "json"}).out);
  EXPECT_EQ(1, json["asWanted"]);
  EXPECT_EQ("On", json["differ"][0]["present"]);
}

}  // namespace
