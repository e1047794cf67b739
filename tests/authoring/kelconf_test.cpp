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

TEST(Kelconf, CheckEndsWithOneForWarningsAndErrorsOnly) {
  tests::StorageFolder folder;
  folder.WriteMenu("<GROUP name=\"A\"><DisplayName>A</DisplayName><Function>Summary</Function><ShortDesc/></GROUP>");
  const KelconfRun note = RunKelconf({"check", folder.Path().string()});
  EXPECT_EQ(0, note.status);
  EXPECT_NE(std::string::npos, note.out.find("note: ShortDesc")) << note.out;
  folder.WriteMenu("<GROUP name=\"A\"><DisplayName>A</DisplayName><Function>Sumary</Function></GROUP>");
  EXPECT_EQ(1, RunKelconf({"check", folder.Path().string()}).status);
  EXPECT_EQ(2, RunKelconf({"check", folder.Path().string(), "nowhere"}).status);
  EXPECT_EQ(0, RunKelconf({"check", "--list"}).status);
  const auto json = nlohmann::json::parse(RunKelconf({"check", folder.Path().string(), "--format", "json"}).out);
  EXPECT_EQ("function-unknown", json["findings"][0]["id"]);
}

TEST(Kelconf, FindNamesTheKeysThatLeadThereNow) {
  const KelconfRun run = RunKelconf({"find", tests::kDemonstration.string(), "BAUD"});
  EXPECT_EQ(0, run.status);
  EXPECT_EQ(
      "6-1-2  COM1 Baud  Serial\\Com1\\Baud  1.3.6.1.4.1.4242.10.7.2.0\n"
      "hidden  COM2 Baud  Serial\\Com2\\Baud  1.3.6.1.4.1.4242.10.7.6.0\n",
      run.out);
  EXPECT_EQ(1, RunKelconf({"find", tests::kDemonstration.string(), "no such thing"}).status);
}

TEST(Kelconf, FindLooksAtNamesOidsValuesChoicesAndAttributes) {
  const auto matched = [](const std::string& text) {
    const auto json =
        nlohmann::json::parse(RunKelconf({"find", tests::kSmallExample.string(), text, "--format", "json"}).out);
    return json.empty() ? std::string("none")
                        : json[0]["matched"].get<std::string>() + " " + json[0]["keys"].get<std::string>();
  };
  EXPECT_EQ("DisplayName 1-2", matched("light t"));
  EXPECT_EQ("OID 1-1", matched("10.4.1.0"));
  EXPECT_EQ("value 1-2", matched("30"));
  EXPECT_EQ("ChoiceFmt 1-1", matched("Off"));
  EXPECT_EQ("Dependency 1-2", matched("dependency"));
  EXPECT_EQ("none", matched("secret"));
}

TEST(Kelconf, FindSaysNoSecrets) {
  tests::StorageFolder folder;
  folder.WriteMenu("<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Password</Type></GROUP>")
      .Write("device.txt", "1.1\tPassword\thunter2\n");
  EXPECT_EQ(1, RunKelconf({"find", folder.Path().string(), "hunter"}).status);
}

// What changed from one menu to another, without the names of the entries.
std::string Difference(const std::string& before, const std::string& after) {
  tests::StorageFolder old;
  tests::StorageFolder now;
  old.WriteMenu(before);
  now.WriteMenu(after);
  return RunKelconf({"diff", old.Path().string(), now.Path().string()}).out;
}

std::string Light(const std::string& name, const std::string& more) {
  return "<GROUP name=\"Light\"><DisplayName>" + name + "</DisplayName><OID>1.1</OID><Type>Integer</Type>" + more +
         "</GROUP>";
}

TEST(Kelconf, DiffSaysWhatChangedInAnAuthorsWords) {
  const std::string choices = "<ChoiceFmt>0#Off|1#On</ChoiceFmt>";
  const std::string sum = "<GROUP name=\"Sum\"><DisplayName>Sum</DisplayName><Function>Summary</Function></GROUP>";
  const struct {
    std::string before;
    std::string after;
    std::string said;
  } cases[] = {
      {Light("Light", choices), Light("Light", choices), ""},
      {Light("Light", choices), Light("Backlight", choices), "Light is called \"Backlight\" instead of \"Light\"\n"},
      {Light("Light", choices), Light("Light", "<ChoiceFmt>0#Off|1#Always|2#Timed</ChoiceFmt>"),
       "Light calls the choice 1 \"Always\" instead of \"On\"\nLight has the choice \"Timed\" (2) now\n"},
      {Light("Light", choices), Light("Light", "<ChoiceFmt>1#On</ChoiceFmt>"),
       "Light has the choice \"Off\" (0) no more\n"},
      {Light("Light", ""), Light("Light", "<Dependency>IF A EQ 1 THEN Blank</Dependency>"),
       "Light has the rule Dependency now: \"IF A EQ 1 THEN Blank\"\n"},
      {Light("Light", "<_OnExit>Refresh</_OnExit>"), Light("Light", "<_OnExit>FlagChanges</_OnExit>"),
       "Light has changed in the handler _OnExit from \"Refresh\" to \"FlagChanges\"\n"},
      {Light("Light", "<Range>1-5</Range>"), Light("Light", ""), "Light has Range no more: \"1-5\"\n"},
      {sum, sum + Light("Light", ""), "Light is new in \"Main\"\n"},
      {sum + Light("Light", ""), sum, "Light is gone in \"Main\"\n"},
      {sum + Light("Light", ""), Light("Light", "") + sum, "Light stands before \"Sum\" now\n"},
      {Light("Light", "") + "<GROUP name=\"M\"><DisplayName>M</DisplayName>" + sum + "</GROUP>",
       "<GROUP name=\"M\"><DisplayName>M</DisplayName>" + sum + Light("Light", "") + "</GROUP>",
       "M\\Light has moved from \"Main\" to \"M\"\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.said, Difference(c.before, c.after)) << c.after;
}

TEST(Kelconf, DiffOfAMenuOfThousandsTakesNoLongerThanItHasLines) {
  constexpr int kLines = 8000;
  const auto menu = [](int first) {
    std::string groups;
    for (int i = 0; i < kLines; ++i) {
      const std::string n = std::to_string((i + first) % kLines);
      groups += "<GROUP name=\"E" + n + "\"><DisplayName>E" + n + "</DisplayName></GROUP>\n";
    }
    return groups;
  };
  std::string choices = "<OID>1.1</OID><Type>Integer</Type><ChoiceFmt>";
  for (int i = 0; i < kLines; ++i) choices += std::to_string(i) + "#c" + std::to_string(i) + "|";
  const std::string many = "<GROUP name=\"C\"><DisplayName>C</DisplayName>" + choices;
  tests::StorageFolder old;
  tests::StorageFolder now;
  old.WriteMenu(menu(0) + many + "</ChoiceFmt></GROUP>");
  now.WriteMenu(menu(1) + many + "x#y</ChoiceFmt></GROUP>");
  const std::string out = RunKelconf({"diff", old.Path().string(), now.Path().string()}).out;
  EXPECT_NE(std::string::npos, out.find("C has the choice \"y\" (x) now")) << out.substr(0, 2000);
  EXPECT_NE(std::string::npos, out.find("E1 stands before \"E0\" now")) << out.substr(0, 2000);
}

TEST(Kelconf, ACommandThatIsNotThereIsNamed) {
  const KelconfRun unknown = RunKelconf({"chekc", "."});
  EXPECT_EQ(2, unknown.status);
  EXPECT_EQ(
      "kelconf: there is no command \"chekc\"; there are check find tree diff why explore manual\n"
      "Run with --help for more information.\n",
      unknown.errors);
  const KelconfRun none = RunKelconf({});
  EXPECT_EQ(2, none.status);
  EXPECT_TRUE(none.errors.starts_with("kelconf: a command is missing; there are check ")) << none.errors;
}

TEST(Kelconf, WhatIsWrongWithTheArgumentsIsSaidInItsName) {
  const KelconfRun missing = RunKelconf({"find", tests::kSmallExample.string()});
  EXPECT_EQ(2, missing.status);
  EXPECT_EQ("kelconf: TEXT is required\nRun with --help for more information.\n", missing.errors);
  const KelconfRun format = RunKelconf({"tree", tests::kSmallExample.string(), "--format", "yaml"});
  EXPECT_TRUE(format.errors.starts_with("kelconf: --format: ")) << format.errors;
}

TEST(Kelconf, DiffOfOneConfigurationInTwoFormsIsNothing) {
  const KelconfRun run = RunKelconf({"diff", (tests::kDemonstration / "Windows/ovu.xml").string(),
                                     (tests::kDemonstration / "registry.reg").string()});
  EXPECT_EQ(0, run.status);
  EXPECT_EQ("", run.out);
}

TEST(Kelconf, DiffTellsAChangedSymbolFromAChangedName) {
  const auto write = [](tests::StorageFolder& folder, const std::string& text) {
    folder.WriteMenu(Light("STR_LIGHT", ""))
        .Write(
            "registry.reg",
            "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\SYMBOLTABLE]\n\"STR_LIGHT\"=\"" + text + "\"\n");
  };
  tests::StorageFolder old;
  tests::StorageFolder now;
  write(old, "Light");
  write(now, "Lamp");
  const KelconfRun run = RunKelconf({"diff", old.Path().string(), now.Path().string()});
  EXPECT_EQ("Light reads \"Lamp\" instead of \"Light\" by the symbol STR_LIGHT\n", run.out);
}

TEST(Kelconf, JsonIsWrittenAlsoForAFolderWhoseNameIsNoUtf8) {
  tests::StorageFolder folder;
  std::filesystem::create_directories(folder.Path() / "b\xff/Windows");
  folder.Write("b\xff/Windows/ovu.xml", "<GROUP name=\"R\">" + Light("Light", "") + "</GROUP>");
  const std::string path = (folder.Path() / "b\xff").string();
  for (const char* command : {"tree", "check"}) {
    const KelconfRun run = RunKelconf({command, path, "--format", "json"});
    EXPECT_NE(2, run.status) << run.errors;
    EXPECT_TRUE(nlohmann::json::accept(run.out)) << run.out;
  }
}

TEST(Kelconf, AnAnswerThatCannotBeWrittenIsNoSuccess) {
  std::ostream full(nullptr);
  std::ostringstream errors;
  EXPECT_EQ(2, tools::RunKelconf({"tree", tests::kSmallExample.string()}, {full, errors, false, false}));
  EXPECT_EQ("kelconf: the answer cannot be written\n", errors.str());
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
