#include "authoring/checks/check.h"
#include "authoring/check_run.h"
#include "authoring/finding_formats.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <regex>
#include <sstream>

namespace {

using authoring::CheckConfiguration;
using authoring::Finding;
using nlohmann::json;
using tests::StorageFolder;

std::string Said(const std::vector<Finding>& findings) {
  std::ostringstream text;
  PrintText(findings, false, text);
  return text.str();
}

// "id line:column key value" of each finding.
std::vector<std::string> Found(const StorageFolder& folder) {
  std::vector<std::string> found;
  for (const Finding& finding : CheckConfiguration(*folder.Load())) {
    found.push_back(std::string(finding.id) + " " + std::to_string(finding.position.line) + ":" +
                    std::to_string(finding.position.column) + " " + base::ToUtf8(finding.key) + " " +
                    base::ToUtf8(finding.value));
  }
  return found;
}

using Lines = std::vector<std::string>;

TEST(Check, TheExamplesHaveNoSlips) {
  for (const auto& root : {tests::kDemonstration, tests::kSmallExample, tests::kForklift}) {
    EXPECT_EQ("", Said(CheckConfiguration(*authoring::Configuration::Load(root).configuration)));
  }
}

TEST(Check, AFindingStandsWhereItsAttributeDoes) {
  StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"A\">\n"
      "  <DisplayName>A</DisplayName>\n"
      "  <OID>1.1</OID><Type>Integr</Type>\n"
      "  <Dependency>IF A EQ 1\n     AND (A EQ 2) THEN NoEdit</Dependency>\n"
      "</GROUP>\n");
  EXPECT_EQ((Lines{"type-unknown 4:17 A Type", "rule-malformed 6:10 A Dependency"}), Found(folder));
}

TEST(Check, ACommandMayShowAValueThatIsReadOnly) {
  const std::string command = "<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Integer</Type>";
  StorageFolder folder;
  folder.Write("device.txt", "1.1\tInteger\t5\n");
  folder.WriteMenu(command + "<Function>WEP_Properties</Function></GROUP>");
  EXPECT_EQ((Lines{"entry-two-things 2:1 A "}), Found(folder));
  folder.WriteMenu(command + "<Security>1</Security><Function>WEP_Properties</Function></GROUP>");
  EXPECT_EQ(Lines{}, Found(folder));
}

TEST(Check, ARegistryHasKeysAndValuesInsteadOfLines) {
  StorageFolder folder;
  folder.Write("registry.reg",
               "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP]\n\"DisplayName\"=\"Main\"\n\n"
               "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Valtorix\\ZEP\\CONFIGAPP\\A]\n\"DisplayName\"=\"A\"\n\"OID\"=\"1.1\"\n"
               "\"Type\"=\"Integr\"\n");
  EXPECT_EQ((Lines{"type-unknown 0:0 A Type"}), Found(folder));
  const std::string said = Said(CheckConfiguration(*folder.Load()));
  EXPECT_NE(std::string::npos, said.find("registry.reg: [A] Type: error: ")) << said;
}

TEST(Check, ACommentAllowsAFindingOfTheEntryOrTheAttributeBehindIt) {
  const std::string entry =
      "<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Integer</Type>"
      "<ChoiceFmt>1#On|1#Off</ChoiceFmt></GROUP>";
  StorageFolder folder;
  folder.WriteMenu(entry);
  EXPECT_EQ(1u, Found(folder).size());
  folder.WriteMenu("<!-- check: allow choice-key-twice: the device sends both -->\n" + entry);
  EXPECT_EQ(Lines{}, Found(folder));
  folder.WriteMenu(std::regex_replace(entry, std::regex("<ChoiceFmt>"), "<!-- check: allow choice-key-twice -->$&"));
  EXPECT_EQ(Lines{}, Found(folder));
  // Another entry's comment, another attribute's and another check's silence nothing.
  folder.WriteMenu(entry + "<!-- check: allow choice-key-twice: none -->");
  EXPECT_EQ(2u, Found(folder).size());
  folder.WriteMenu(std::regex_replace(entry, std::regex("<Type>"), "<!-- check: allow choice-key-twice -->$&"));
  EXPECT_EQ(2u, Found(folder).size());
  folder.WriteMenu("<!-- check: allow choice-text-twice, choice-key-twice: both -->\n" + entry);
  EXPECT_EQ((Lines{"allow-unused 2:1  "}), Found(folder));
}

TEST(Check, WithoutProofsNoCommentAboutThemIsMissed) {
  StorageFolder folder;
  folder.WriteMenu(
      "<!-- check: allow line-never-shown: not yet released -->\n"
      "<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Bool</Type>"
      "<Dependency>IF A EQ 1 THEN Blank ELSE NoDisplay</Dependency></GROUP>"
      "<GROUP name=\"B\"><DisplayName>B</DisplayName><Function>Summary</Function></GROUP>");
  EXPECT_EQ(Lines{}, Found(folder));
  EXPECT_EQ("", Said(CheckConfiguration(*folder.Load(), {false, {}})));
}

TEST(Check, ADeviceValueThatIsASecretIsNotSaid) {
  StorageFolder folder;
  folder
      .WriteMenu(
          "<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Octet String</Type>"
          "<PassWordChar>*</PassWordChar><ChoiceFmt>a#A|b#B</ChoiceFmt></GROUP>")
      .Write("device.txt", "1.1\tOctet String\thunter2\n");
  const std::string said = Said(CheckConfiguration(*folder.Load()));
  EXPECT_NE(std::string::npos, said.find("device-value-no-choice"));
  EXPECT_EQ(std::string::npos, said.find("hunter2")) << said;
}

// --- proofs ---

std::string Property(const std::string& name, const std::string& attributes) {
  static int number = 0;
  return "<GROUP name=\"" + name + "\"><DisplayName>" + name + "</DisplayName><OID>1.7." + std::to_string(++number) +
         "</OID>" + attributes + "</GROUP>\n";
}

std::vector<std::string> Ids(const std::string& groups) {
  StorageFolder folder;
  folder.WriteMenu(groups);
  std::vector<std::string> ids;
  for (const Finding& finding : CheckConfiguration(*folder.Load())) ids.emplace_back(finding.id);
  return ids;
}

TEST(Proofs, AComparisonIsJudgedByTheValuesThatThePropertyCanHave) {
  const struct {
    const char* attributes;
    const char* comparison;
    Lines found;
  } cases[] = {
      {"<Type>Integer</Type><ChoiceFmt>0#Off|1#On</ChoiceFmt>", "A EQ 1", {}},
      {"<Type>Integer</Type><ChoiceFmt>0#Off|1#On</ChoiceFmt>", "A EQ 2", {"comparison-never-true"}},
      {"<Type>Integer</Type><ChoiceFmt>0#Off|1#On</ChoiceFmt>", "A NEQ On", {"comparison-always-true"}},
      {"<Type>Integer</Type><Range>5-60</Range>", "A EQ 60", {}},
      {"<Type>Integer</Type><Range>5-60</Range>", "A EQ 61", {"comparison-never-true"}},
      {"<Type>Integer</Type>", "A EQ 61", {}},
      {"<Type>Integer</Type>", "A EQ 061", {"comparison-never-true"}},  // a number reads without zeros in front
      {"<Type>Bool</Type>", "A EQ TRUE", {"comparison-never-true"}},
      {"<Type>Octet String</Type>", "A EQ Off", {}},
      {"<Type>Octet String</Type><ChoiceFmt>on#On|off#Off</ChoiceFmt>", "A EQ OFF", {}},  // case does not count
      {"<Type>IP Address</Type>", "A EQ 10.0.0.1", {"comparison-never-true"}},            // it is held as a number
  };
  for (const auto& c : cases) {
    const std::string rule = "<Dependency>IF " + std::string(c.comparison) + " THEN NoEdit</Dependency>";
    EXPECT_EQ(c.found, Ids(Property("A", c.attributes) + Property("B", "<Type>Bool</Type>" + rule)))
        << c.attributes << " " << c.comparison;
  }
}

TEST(Proofs, OneMoreValueThanAllRulesAskForIsAmongThoseThatMatter) {
  const std::string rules =
      "<Dependency>IF A EQ 1 THEN NoDisplay</Dependency><Dependency1>IF A EQ 2 THEN NoDisplay</Dependency1>";
  const auto found = [&](const char* range) {
    return Ids(Property("A", "<Type>Integer</Type><Range>" + std::string(range) + "</Range>") +
               Property("B", "<Type>Bool</Type>" + rules));
  };
  EXPECT_EQ(Lines{}, found("1-3"));
  EXPECT_EQ(Lines{"line-never-shown"}, found("1-2"));
}

TEST(Check, AConditionThatBreaksIsReadAsTheRuleThatItIsRunAs) {
  const auto found = [](const std::string& rule) {
    StorageFolder folder;
    folder.WriteMenu(
        "<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Bool</Type><DefVal>1</DefVal>"
        "<Dependency>" +
        rule +
        "</Dependency></GROUP>"
        "<GROUP name=\"B\"><DisplayName>B</DisplayName><Function>Summary</Function></GROUP>");
    folder.Write("device.txt", "1.1\tBool\t1\n");
    return Found(folder);
  };
  EXPECT_EQ(Lines{"rule-oid-unknown 2:94 A Dependency"}, found("IF A|Bool|1|NoDisplay"));
  EXPECT_EQ(Lines{"rule-malformed 2:109 A Dependency"}, found("IF A|Bool|1|Hide"));
}

TEST(Proofs, NotDecidedSaysHowMuchThereWouldBeToGoThrough) {
  const auto said = [](int settings) {
    std::string groups;
    std::string condition;
    for (int i = 0; i < settings; ++i) {
      groups += Property("S" + std::to_string(i), "<Type>Bool</Type>");
      condition += (i == 0 ? "IF S" : " AND S") + std::to_string(i) + " EQ 1";
    }
    StorageFolder folder;
    folder.WriteMenu(groups + Property("X", "<Type>Bool</Type><Dependency>" + condition + " THEN Blank</Dependency>"));
    for (const Finding& finding : CheckConfiguration(*folder.Load())) {
      if (finding.id == "not-decided") return finding.sentence;
    }
    return std::string();
  };
  EXPECT_EQ("", said(12));
  EXPECT_NE(std::string::npos, said(13).find("depends on 13 values with more than 4096 cases."));
  EXPECT_NE(std::string::npos, said(65).find("depends on more than 64 values with more than 4096 cases."));
}

TEST(Proofs, ALineThatTheWirelessRulesShowIsNotSaidToBeHidden) {
  const std::string hidden = "<Dependency>Empty|Integer|Empty|NoDisplay</Dependency>";
  const auto found = [&](const std::string& oid) {
    const auto ids = Ids("<GROUP name=\"K\"><DisplayName>K</DisplayName><OID>" + oid +
                         "</OID><Type>Integer</Type><ChoiceFmt>0#A|4#B</ChoiceFmt>" + hidden + "</GROUP>");
    return std::count(ids.begin(), ids.end(), "line-never-shown");
  };
  EXPECT_EQ(1, found("1.2.3"));
  EXPECT_EQ(0, found("1.2.840.10036.1.5.1.2.2"));
}

TEST(Proofs, WithMoreChoicesThanAreGoneThroughNothingIsDecidedAndNothingTakesLong) {
  std::string choices;
  for (int i = 0; i < 200'000; ++i) choices += (i == 0 ? "" : "|") + std::to_string(i) + "#c" + std::to_string(i);
  StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Integer</Type><ChoiceFmt>" + choices +
      "</ChoiceFmt></GROUP>\n<GROUP name=\"B\"><DisplayName>B</DisplayName><OID>1.2</OID><Type>Integer</Type>"
      "\n<Dependency>IF A EQ 3 THEN NoDisplay</Dependency></GROUP>");
  EXPECT_EQ(Lines{"not-decided 4:1 B Dependency"}, Found(folder));
}

TEST(Proofs, AMenuThatIsHiddenWithItsLinesIsNeverEmpty) {
  const std::string lines = "<DisplayName>M</DisplayName>" +
                            Property("B", "<Type>Bool</Type><Dependency>IF A EQ 1 THEN NoDisplay</Dependency>") +
                            Property("C", "<Type>Bool</Type><Dependency>IF A NEQ 0 THEN NoDisplay</Dependency>");
  const std::string a = Property("A", "<Type>Bool</Type>");
  EXPECT_EQ((Lines{"menu-can-be-empty"}), Ids(a + "<GROUP name=\"M\">" + lines + "</GROUP>"));
  EXPECT_EQ(Lines{},
            Ids(a + "<GROUP name=\"M\"><Dependency>IF A EQ 1 THEN NoDisplay</Dependency>" + lines + "</GROUP>"));
}

TEST(Proofs, AMenuBehindMoreMenusWithRulesThanAreGoneThroughIsNotSaidToBeEmpty) {
  // Each is hidden by a setting of its own, but for the line, which is hidden by another.
  const auto menus = [](int count, const std::string& line) {
    std::string text = Property("A", "<Type>Bool</Type>") + Property("B", "<Type>Bool</Type>");
    for (int i = 0; i < count; ++i) {
      text += "<GROUP name=\"M\"><DisplayName>M" + std::to_string(i) +
              "</DisplayName><Dependency>IF B EQ 1 THEN NoDisplay</Dependency>";
    }
    text += Property("C", "<Type>Bool</Type><Dependency>IF " + line + " EQ 1 THEN NoDisplay</Dependency>");
    for (int i = 0; i < count; ++i) text += "</GROUP>";
    return Ids(text);
  };
  EXPECT_EQ(Lines{"menu-can-be-empty"}, menus(16, "A"));
  EXPECT_EQ(Lines{"not-decided"}, menus(17, "A"));
  EXPECT_EQ(Lines{}, menus(17, "B"));
}

TEST(Proofs, FallbacksOfTwoPropertiesThatFollowEachOtherAreFound) {
  const std::string choices = "<Type>Integer</Type><ChoiceFmt>1#One|2#Two</ChoiceFmt>";
  const auto follows = [&](const std::string& own, const std::string& other, const std::string& one,
                           const std::string& two) {
    return Property(own, choices + "<Dependency>IF " + other + " EQ 1 THEN ChoiceFmt=\"" + one +
                             "\" ELSE ChoiceFmt=\"" + two + "\"</Dependency>");
  };
  // A becomes what B is not, and B becomes what A is.
  EXPECT_EQ((Lines{"rules-undo-each-other"}),
            Ids(follows("A", "B", "2#Two:2", "1#One:1") + follows("B", "A", "1#One:1", "2#Two:2")));
  // Both become what the other is: they agree.
  EXPECT_EQ(Lines{}, Ids(follows("A", "B", "1#One:1", "2#Two:2") + follows("B", "A", "1#One:1", "2#Two:2")));
}

// --- formats ---

std::vector<Finding> Some() {
  static StorageFolder folder;
  folder.WriteMenu(
      "<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID><Type>Integr</Type></GROUP>\n"
      "<GROUP name=\"B\"><DisplayName>B</DisplayName></GROUP>");
  return CheckConfiguration(*folder.Load());
}

std::string IdsOf(const std::string& attributes, const std::string& more = "") {
  StorageFolder folder;
  folder.WriteMenu("<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID>" + attributes + "</GROUP>" + more);
  std::string ids;
  for (const Finding& finding : CheckConfiguration(*folder.Load())) ids += std::string(finding.id) + " ";
  return ids;
}

TEST(Check, ADateIsADayOfTheCalendarAndATimeOneOfTheClock) {
  const struct {
    const char* subType;
    const char* value;
    bool good;
  } cases[] = {{"Date", "20240229", true}, {"Date", "20230229", false}, {"Date", "20241301", false},
               {"Date", "0", false},       {"Time", "0", true},         {"Time", "235959", true},
               {"Time", "240000", false},  {"Time", "96000", false},    {"Time", "60", false}};
  for (const auto& one : cases) {
    const std::string subType = std::string("<Type>Integer</Type><SubType>") + one.subType + "</SubType>";
    EXPECT_EQ(one.good ? "" : "default-not-a-value ", IdsOf(subType + "<DefVal>" + one.value + "</DefVal>"))
        << one.subType << " " << one.value;
    StorageFolder folder;
    folder.WriteMenu("<GROUP name=\"A\"><DisplayName>A</DisplayName><OID>1.1</OID>" + subType + "</GROUP>")
        .Write("device.txt", std::string("1.1\tInteger\t") + one.value + "\n");
    EXPECT_EQ(one.good ? 0u : 1u, CheckConfiguration(*folder.Load()).size()) << one.subType << " " << one.value;
  }
}

TEST(Check, WhatIsTheTerminalsOwnWantsNoDefault) {
  const std::string restore =
      "<GROUP name=\"R\"><DisplayName>R</DisplayName><Function>RestoreDefaults</Function></GROUP>";
  EXPECT_EQ("default-missing ", IdsOf("<Type>Bool</Type>", restore));
  EXPECT_EQ("default-missing ", IdsOf("<Type>Integer</Type><Range>1-9</Range>", restore));
  EXPECT_EQ("default-missing ", IdsOf("<Type>Octet String</Type><ChoiceFmt>a#A|b#B</ChoiceFmt>", restore));
  EXPECT_EQ("", IdsOf("<Type>Octet String</Type><MaxChars>9</MaxChars>", restore));
  EXPECT_EQ("", IdsOf("<Type>IP Address</Type>", restore));
  EXPECT_EQ("", IdsOf("<Type>Password</Type>", restore));
}

TEST(Check, OneSlipIsSaidOnce) {
  // No number lies in the range, so everything lies outside; without its symbol a list has no choices at all.
  EXPECT_EQ("range-empty ", IdsOf("<Type>Integer</Type><Range>60-5</Range><DefVal>30</DefVal>"));
  EXPECT_EQ("symbol-missing ", IdsOf("<Type>Integer</Type><ChoiceFmt>FMT_NONE</ChoiceFmt><DefVal>1</DefVal>"));
  EXPECT_EQ("choice-key-no-number choice-key-no-number ",
            IdsOf("<Type>Integer</Type><ChoiceFmt>N#No|Y#Yes</ChoiceFmt>"));
  EXPECT_EQ("comparison-never-true ",
            IdsOf("<Type>Bool</Type>",
                  "<GROUP name=\"B\"><DisplayName>B</DisplayName><OID>1.2</OID><Type>Bool</Type>"
                  "<Dependency>IF A EQ Yes THEN Display ELSE NoDisplay</Dependency></GROUP>"));
}

TEST(Check, ASettingMayHideItselfWhereAnotherOneBringsItBack) {
  const std::string self = "<Type>Bool</Type><Dependency>IF A EQ 0 THEN NoDisplay</Dependency>";
  const auto other = [](const std::string& more) {
    return "<GROUP name=\"B\"><DisplayName>B</DisplayName><OID>1.2</OID><Type>Bool</Type>" + more + "</GROUP>";
  };
  EXPECT_EQ("no-way-back ", IdsOf(self, other("")));
  EXPECT_EQ("", IdsOf(self + "<Dependency1>IF B EQ 1 THEN Display</Dependency1>", other("")));
  EXPECT_EQ("", IdsOf(self + "<Security>1</Security>", other("")));
}

TEST(FindingFormats, TextIsAsCompilersPrintIt) {
  const std::string said = Said(Some());
  EXPECT_TRUE(std::regex_search(said, std::regex("Windows[/\\\\]ovu\\.xml:2:59: error: There is no Type \"Integr\".* "
                                                 "\\[type-unknown\\]\n    Write \"Integer\"\\.\n")))
      << said;
}

TEST(FindingFormats, SarifHasWhatSarifRequires) {
  std::ostringstream out;
  PrintSarif(Some(), out);
  const json document = json::parse(out.str());
  EXPECT_EQ("2.1.0", document["version"]);
  ASSERT_EQ(1u, document["runs"].size());
  const json& run = document["runs"][0];
  const json& driver = run["tool"]["driver"];
  EXPECT_EQ("kelconf", driver["name"]);
  ASSERT_EQ(2u, run["results"].size());
  for (const json& result : run["results"]) {
    EXPECT_FALSE(result["message"]["text"].get<std::string>().empty());
    EXPECT_EQ(result["ruleId"], driver["rules"][result["ruleIndex"].get<std::size_t>()]["id"]);
    const std::string level = result["level"];
    EXPECT_TRUE(level == "note" || level == "warning" || level == "error") << level;
    const json& physical = result["locations"][0]["physicalLocation"];
    EXPECT_TRUE(physical["artifactLocation"]["uri"].get<std::string>().starts_with("file:///"));
    EXPECT_GE(physical["region"]["startLine"].get<int>(), 2);
    EXPECT_GE(physical["region"]["startColumn"].get<int>(), 1);
  }
}

}  // namespace
