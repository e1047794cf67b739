#include "authoring/explanation.h"

#include "authoring/entry_lookup.h"
#include "authoring/explanation_text.h"
#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

#include <algorithm>

namespace {

using authoring::Explanation;
using authoring::Wish;

std::string Tag(const std::string& name, const std::string& text) {
  return "<" + name + ">" + text + "</" + name + ">";
}

std::string Group(const std::string& name, const std::string& content) {
  return "<GROUP name=\"" + name + "\">" + Tag("DisplayName", name) + content + "</GROUP>\n";
}

std::string Property(const std::string& name, const std::string& oid, const std::string& type,
                     const std::string& more = {}) {
  return Group(name, Tag("OID", oid) + Tag("Type", type) + more);
}

const std::string kMode = Property("Mode", "1.1", "Integer", Tag("ChoiceFmt", "0#Off|1#On|2#Auto"));

// A menu of these entries beside "Mode" (OID 1.1, Integer, off), "Level" (1.2, 0 to 99, 5) and "Name" (1.3, "truck").
class ExplanationTest : public ::testing::Test {
 protected:
  void Write(const std::string& entries, const std::string& device = {}) {
    folder_.WriteMenu(kMode + Property("Level", "1.2", "Integer", Tag("Range", "0,99")) +
                      Property("Name", "1.3", "Octet String") + entries);
    folder_.Write("device.txt",
                  "1.1\tInteger\t0\n1.2\tInteger\t5\n1.3\tOctet String\ttruck\n1.9\tInteger\t1\n" + device);
  }
  Explanation Explain(WideStringView entry) {
    configuration_ = folder_.Load();
    authoring::RuleTrace trace;
    authoring::Trial trial(*configuration_, &trace);
    const auto found = authoring::FindEntries(trial, entry);
    EXPECT_EQ(1u, found.size()) << base::ToUtf8(entry);
    if (found.size() != 1) return {};
    return authoring::Explain(trial, trace, authoring::PlaceOf(*found.front()));
  }
  // "show: Mode=1 or Mode=2; choice High: Mode=1 and Level=6"
  static std::string WaysOf(const Explanation& explanation) {
    static constexpr const char* kGoals[] = {"show", "unlock", "read", "choice "};
    std::string text;
    for (const Wish& wish : explanation.wishes) {
      text += (text.empty() ? "" : "; ") + std::string(kGoals[static_cast<std::size_t>(wish.goal)]) +
              base::ToUtf8(wish.choice) + ":";
      for (std::size_t i = 0; i < wish.ways.size(); ++i) {
        text += i == 0 ? " " : " or ";
        for (std::size_t step = 0; step < wish.ways[i].size(); ++step) {
          const auto& taken = wish.ways[i][step];
          text += (step == 0 ? "" : " and ") + base::ToUtf8(taken.name) + "=" + base::ToUtf8(taken.change.value);
        }
      }
      if (wish.ways.empty()) text += wish.complete ? " impossible" : " not found";
    }
    return text;
  }
  static bool Has(const Explanation& explanation, const char* remark) {
    return std::any_of(explanation.remarks.begin(), explanation.remarks.end(),
                       [remark](const auto& candidate) { return candidate.id == remark; });
  }

  tests::StorageFolder folder_;
  std::unique_ptr<authoring::Configuration> configuration_;
};

TEST_F(ExplanationTest, FindsTheSmallestChangesForEachKindOfRule) {
  const struct {
    const char* rules;
    const char* ways;
  } cases[] = {
      {"<Dependency>1.1|Integer|1|Display</Dependency>", "show: Mode=1"},
      {"<Dependency>1.1|Integer|0|NoDisplay</Dependency>", "show: Mode=1 or Mode=2"},
      {"<Dependency>1.1|Integer|0|Blank</Dependency>", "show: Mode=1 or Mode=2"},
      {"<Dependency>1.1|Integer|0|NoEdit</Dependency>", "unlock: Mode=1 or Mode=2"},
      {"<Dependency>IF Mode EQ 0 THEN NoEdit</Dependency>", "unlock: Mode=1 or Mode=2"},
      {"<Dependency>IF Mode EQ 1 AND Level EQ 7 THEN Display ELSE NoDisplay</Dependency>", "show: Mode=1 and Level=7"},
      {"<Dependency>IF Mode EQ 1 OR Level EQ 7 THEN Display ELSE NoDisplay</Dependency>", "show: Mode=1 or Level=7"},
      {"<Dependency>IF Level EQ 5 THEN NoDisplay</Dependency>", "show: Level=0"},
      {"<Dependency>IF Name EQ Truck THEN NoDisplay</Dependency>", "show: Name=x or Name="},
      {"<Dependency>IF Level EQ 500 THEN Display ELSE NoDisplay</Dependency>", "show: impossible"},
      {"<Dependency>IF Mode EQ 3 THEN Display ELSE NoDisplay</Dependency>", "show: impossible"},
      {"<Dependency>Empty|Integer|Empty|NoDisplay</Dependency>", "show: impossible"},
      // the later rule overrides the earlier one
      {"<Dependency>1.1|Integer|0|NoDisplay</Dependency><Dependency1>IF Level EQ 5 THEN NoEdit ELSE Display"
       "</Dependency1>",
       "unlock: Level=0"},
      {"<Dependency>this|Integer|1|NoDisplay</Dependency>", "show: x=4"},
      {"<ChoiceFmt>1#Low|2#High</ChoiceFmt><Dependency>IF Mode EQ 0 THEN ChoiceFmt=\"1#Low\"</Dependency>",
       "choice High: Mode=1 or Mode=2"},
      {"<Dependency>IF Mode EQ 1 THEN NoDisplay</Dependency>", ""},
  };
  for (const auto& c : cases) {
    Write(Property("x", "1.9", "Integer", c.rules));
    EXPECT_EQ(c.ways, WaysOf(Explain(u"x"))) << c.rules;
  }
}

TEST_F(ExplanationTest, TheRuleThatDecidedIsTheLastOneThatSetAState) {
  Write(Property("x", "1.9", "Integer",
                 Tag("Dependency", "1.1|Integer|0|NoDisplay") + Tag("Dependency1", "IF Level EQ 5 THEN NoEdit") +
                     Tag("Dependency2", "this|Integer|1|CheckMark") + Tag("Dependency3", "IF Mode XX 1 THEN Blank")));
  const Explanation explanation = Explain(u"x");
  ASSERT_EQ(4u, explanation.line.rules.size());
  EXPECT_EQ(1u, explanation.line.winner);
  EXPECT_EQ(model::DisplayState::kNoEdit, explanation.line.state);
  EXPECT_EQ(authoring::SeenRule::Form::kMalformed, explanation.line.rules[3].form);
  EXPECT_TRUE(explanation.line.rules[3].comparisons.empty());
}

// The bars make it a rule of the other kind, of a property that is called "IF Mode".
TEST_F(ExplanationTest, AConditionThatBreaksIsToldAsTheRuleThatItIsRunAs) {
  Write(Property("x", "1.9", "Integer", Tag("Dependency", "IF Mode|Integer|Empty|NoDisplay")));
  const Explanation explanation = Explain(u"x");
  ASSERT_EQ(1u, explanation.line.rules.size());
  EXPECT_EQ(authoring::SeenRule::Form::kFlag, explanation.line.rules[0].form);
  ASSERT_EQ(1u, explanation.line.rules[0].comparisons.size());
  EXPECT_EQ(u"IF Mode", explanation.line.rules[0].comparisons[0].operand.name);
  EXPECT_EQ(model::DisplayState::kNotDisplayed, explanation.line.state);
  EXPECT_EQ(0u, explanation.line.winner);
}

TEST_F(ExplanationTest, AMenuAboveCanBeWhatHidesALine) {
  Write(Group("menu", Tag("Dependency", "IF Mode EQ 1 THEN Display ELSE NoDisplay") + Property("x", "1.9", "Integer")));
  const Explanation explanation = Explain(u"x");
  ASSERT_EQ(1u, explanation.closedMenus.size());
  EXPECT_EQ(u"menu", explanation.closedMenus[0].title);
  EXPECT_FALSE(explanation.keys);
  EXPECT_EQ("show: Mode=1", WaysOf(explanation));
}

TEST_F(ExplanationTest, AnOpenMenuThatTheChangeWouldCloseIsKeptOpen) {
  Write(Group("menu", Tag("Dependency", "IF Mode EQ 1 AND Level NEQ 7 THEN NoDisplay") +
                          Property("x", "1.9", "Integer", Tag("Dependency", "IF Mode NEQ 1 THEN NoDisplay"))));
  const Explanation explanation = Explain(u"x");
  EXPECT_TRUE(explanation.closedMenus.empty());
  EXPECT_EQ("show: Mode=1 and Level=7", WaysOf(explanation));
}

TEST_F(ExplanationTest, WhatNobodyCanEnterIsLeftToTheDevice) {
  const std::string needs7 = Property("x", "1.9", "Integer", Tag("Dependency", "IF Own NEQ 7 THEN NoDisplay"));
  Write(Property("Own", "1.70", "Integer", Tag("ChoiceFmt", "1#One|2#Two")) + needs7, "1.70\tInteger\t1\n");
  EXPECT_EQ("show: impossible", WaysOf(Explain(u"x")));
  // The default may come again; but it is no choice.
  Write(Property("Own", "1.70", "Integer", Tag("ChoiceFmt", "1#One|2#Two") + Tag("DefVal", "7")) + needs7,
        "1.70\tInteger\t1\n");
  const Explanation explanation = Explain(u"x");
  ASSERT_EQ("show: Own=7", WaysOf(explanation));
  EXPECT_FALSE(explanation.wishes[0].ways[0][0].keys);
}

TEST_F(ExplanationTest, AMenuListsItsHiddenLinesWithWhatHidesThem) {
  Write(Group("menu", Property("a", "1.9", "Integer", Tag("Dependency", "1.1|Integer|1|Display")) +
                          Property("b", "1.2", "Integer")));
  const Explanation explanation = Explain(u"menu");
  ASSERT_EQ(1u, explanation.hiddenLines.size());
  EXPECT_EQ(u"a", explanation.hiddenLines[0].title);
  EXPECT_EQ(u"Dependency", authoring::DecidedBy(explanation.hiddenLines[0]));
}

TEST_F(ExplanationTest, SaysWhatElseThereIsToALine) {
  const struct {
    const char* tags;
    const char* type;
    const char* oid;
    const char* remark;
  } cases[] = {
      {"<PassWordChar>*</PassWordChar>", "Octet String", "1.3", "stars"},
      {"", "Password", "1.3", "stars"},
      {"<WEP>Encrypted</WEP>", "Hex", "1.3", "fixed-text"},
      {"", "Integer", "1.77", "unavailable"},
      {"", "Integer", "1.40", "unavailable"},
      {"", "Integer", "1.41", "unavailable"},
      {"<Security>1</Security>", "Integer", "1.9", "read-only"},
      {"", "Counter", "1.9", "no-editor"},
      {"<PropEditor>None</PropEditor>", "Integer", "1.9", "no-editor"},
      {"<ChoiceFmt>5#Five</ChoiceFmt>", "Integer", "1.9", "no-such-choice"},
      {"", "Octet String", "1.42", "empty-value"},
      {"<ChoiceFmt>a#A</ChoiceFmt>", "Octet String", "1.42", "empty-choice"},
      {"<Dependency>Empty||Empty|NoEdit</Dependency>", "Integer", "1.9", "locked"},
      {"<Dependency>Empty||Empty|NoEdit</Dependency>", "Integer", "_own", "own-value"},
      {"<Function>Summary</Function>", "Integer", "1.9", "runs-command"},
  };
  for (const auto& c : cases) {
    Write(Property("x", c.oid, c.type, c.tags),
          "1.40\tInteger\t\tget=0x80004005\n1.41\tInteger\t\tnull\n1.42\tOctet String\t\n");
    EXPECT_TRUE(Has(Explain(u"x"), c.remark)) << c.remark << " of " << c.type << " " << c.tags;
  }
}

TEST_F(ExplanationTest, ASecretIsNeverPrinted) {
  Write(Property("Secret", "1.50", "Password") +
            Property("x", "1.9", "Integer", Tag("Dependency", "IF Secret EQ open THEN Display ELSE NoDisplay")),
        "1.50\tPassword\thush-hush\n");
  for (const auto& line : authoring::ToText(Explain(u"x"))) {
    EXPECT_EQ(std::string::npos, base::ToUtf8(line.text).find("hush")) << base::ToUtf8(line.text);
  }
}

TEST_F(ExplanationTest, AKeyThatIsNoChoiceIsNotPrintedEither) {
  Write(Property("x", "1.50", "Hex", Tag("ChoiceFmt", "a#A")), "1.50\tOctet String\thush\n");
  for (const auto& line : authoring::ToText(Explain(u"x"))) {
    EXPECT_EQ(std::string::npos, base::ToUtf8(line.text).find("hush")) << base::ToUtf8(line.text);
  }
}

TEST_F(ExplanationTest, AFieldIsChangedWithinItsCommand) {
  Write(Property("Command", "1.60", "ReaderCmd", Tag("Ordinal", "1") + Tag("CmdString", "2,1,2")) +
            Group("Field", Tag("Ordinal", "2") + Tag("CmdOID", "1.60:2") + Tag("Type", "Integer")) +
            Property("x", "1.9", "Integer", Tag("Dependency", "IF Field EQ 7 THEN Display ELSE NoDisplay")) +
            Property("y", "1.2", "Integer", Tag("Dependency", "1.60:1|Octet String|B|Display")),
        "1.60\tOctet String\tA05\n");
  EXPECT_EQ("show: Field=7", WaysOf(Explain(u"x")));
  const Explanation other = Explain(u"y");
  ASSERT_EQ(1u, other.wishes.size());
  ASSERT_LE(1u, other.wishes[0].ways.size());
  EXPECT_EQ((authoring::SettingChange{u"1.60:1", u"B"}), other.wishes[0].ways[0][0].change);
}

TEST_F(ExplanationTest, ReadsAsSentences) {
  Write(Property("x", "1.9", "Integer", Tag("Dependency", "IF Mode EQ 1 AND Level NEQ 5 THEN Display ELSE NoDisplay")));
  std::string text;
  for (const auto& line : authoring::ToText(Explain(u"x"))) text += base::ToUtf8(line.text) + "\n";
  EXPECT_EQ(
      "x  <1>\n"
      "  path   x\n"
      "  OID    1.9  (Integer)\n"
      "  keys   none: it cannot be reached now\n"
      "  now    hidden, by Dependency\n"
      "\n"
      "Dependency  IF Mode EQ 1 AND Level NEQ 5 THEN Display ELSE NoDisplay\n"
      "    Mode (1.1) EQ \"1\": no, it is \"0\" (Off)\n"
      "    AND Level (1.2) NEQ \"5\": no, it is \"5\"; so far no\n"
      "    does not hold: hidden  <- this decides\n"
      "\n"
      "To show it:\n"
      "  - set Mode (keys 1) to On (1), and set Level (keys 2) to \"0\"\n",
      text);
}

TEST_F(ExplanationTest, AMenuOfThousandsOfRulesIsExplainedInBoundedTime) {
  std::string rules;
  for (int i = 0; i < 2000; ++i) {
    rules +=
        Tag("Dependency" + (i == 0 ? "" : std::to_string(i)),
            "IF Level EQ " + std::to_string(i) + " AND No" + std::to_string(i) + " EQ 1 THEN Display ELSE NoDisplay");
  }
  Write(Property("x", "1.9", "Integer", rules));
  const Explanation explanation = Explain(u"x");
  EXPECT_EQ(2000u, explanation.line.rules.size());
  EXPECT_EQ("show: not found", WaysOf(explanation));
}

}  // namespace
