#include "model/defaults_walk.h"

#include "model/key_visits.h"
#include "model/settings_ahead.h"
#include "tests/printing.h"
#include "tests/support/test_terminal.h"
#include "tests/support/trees.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using model::DefaultsMode;

// Answers from memory and keeps what was queued as "OID TYPE VALUE".
class Host final : public model::DefaultsHost {
 public:
  std::set<WideString> inactive;
  std::map<WideString, WideString> device;
  std::vector<WideString> asked;
  std::vector<WideString> queued;
  int reads = 0;

  bool IsActive(const config::ConfigKey& key) override {
    asked.push_back(key.FullPath());
    return !inactive.contains(asked.back());
  }
  WideString ReadValue(const WideString& oid, const WideString& type) override {
    EXPECT_EQ(u"ReaderCmd", type);
    ++reads;
    return device[oid];
  }
  void QueueChange(const WideString& oid, const WideString& type, const WideString& value) override {
    queued.push_back(oid + u" " + type + u" " + value);
  }
};

using Lines = std::vector<WideString>;

std::string Property(std::string_view name, std::string_view values, std::string_view children = "") {
  return "<GROUP name='" + std::string(name) + "'>" + std::string(values) + std::string(children) + "</GROUP>";
}

Lines Queued(const std::string& groups, DefaultsMode mode, Host host = {}) {
  const auto tree = tests::TreeOf("<GROUP name='R'>" + groups + "</GROUP>");
  model::WalkDefaults(*tree, u"R", mode, host);
  return host.queued;
}

TEST(DefaultsWalk, RestoringTakesEveryDefaultInTheOrderOfTheSource) {
  const std::string groups = Property("b", "<OID>2</OID><Type>Integer</Type><DefVal>20</DefVal><Ordinal>2</Ordinal>",
                                      Property("c", "<OID>3</OID><Type>Octet String</Type><DefVal>x y</DefVal>")) +
                             Property("a", "<OID>1</OID><Type>Integer</Type><DefVal>10</DefVal><Ordinal>1</Ordinal>") +
                             Property("n", "<OID>4</OID><Type>Integer</Type>") +
                             Property("m", "<DefVal>no property</DefVal>");
  EXPECT_EQ((Lines{u"2 Integer 20", u"3 Octet String x y", u"1 Integer 10"}), Queued(groups, DefaultsMode::kRestore));
}

TEST(DefaultsWalk, AKeyThatTheRulesLeaveOutTakesItsChildrenWithItAndNothingElse) {
  const std::string groups = Property("a", "<OID>1</OID><Type>Integer</Type><DefVal>1</DefVal>",
                                      Property("c", "<OID>3</OID><Type>Integer</Type><DefVal>3</DefVal>")) +
                             Property("b", "<OID>2</OID><Type>Integer</Type><DefVal>2</DefVal>");
  Host host;
  host.inactive = {u"R\\a"};
  EXPECT_EQ((Lines{u"2 Integer 2"}), Queued(groups, DefaultsMode::kRestore, host));
}

TEST(DefaultsWalk, TheRulesAreAskedOnlyAboutKeysWithADefault) {
  const auto tree = tests::TreeOf("<GROUP name='R'>" + Property("a", "<OID>1</OID>") +
                                  Property("b", "<OID>2</OID><Type>Integer</Type><DefVal>2</DefVal>") + "</GROUP>");
  Host host;
  model::WalkDefaults(*tree, u"R", DefaultsMode::kRestore, host);
  EXPECT_EQ((Lines{u"R\\b"}), host.asked);
}

TEST(DefaultsWalk, ExitRulesGiveTheirSetTriples) {
  const std::string groups =
      Property("a", "<_OnExit>IfChanges:1.2.3|Integer|5677765</_OnExit>",
               Property("b", "<_OnExit>IfChanges:9|Octet String|a|b</_OnExit>")) +
      Property("c", "<_OnExit>IfChanges:</_OnExit>") + Property("d", "<_OnExit>FlagChanges</_OnExit>") +
      Property("e", "<_OnExit>Rebind:1|Integer|2</_OnExit>") +
      Property("f", "<_OnExit>IfChanges:ApplyNetworkSettings</_OnExit>") +
      Property("g", "<_OnExit>IfChanges:1|Integer</_OnExit>") + Property("h", "<_OnExit>1|Integer|2</_OnExit>");
  Host host;
  host.inactive = {u"R\\a"};  // the rules have no say here
  EXPECT_EQ((Lines{u"1.2.3 Integer 5677765", u"9 Octet String a|b"}), Queued(groups, DefaultsMode::kExitRules, host));
}

TEST(DefaultsWalk, TheWordBeforeAnExitRuleGoesAsASetOfCharacters) {
  // An OID that begins with one of the word's letters loses them, and the colons and letters of the word repeat freely.
  EXPECT_EQ((Lines{u"ttings Integer 1"}),
            Queued(Property("a", "<_OnExit>IfChanges:Isettings|Integer|1</_OnExit>"), DefaultsMode::kExitRules));
  EXPECT_EQ((Lines{u"1 Integer 2"}),
            Queued(Property("a", "<_OnExit>IfChanges:IfChanges:1|Integer|2</_OnExit>"), DefaultsMode::kExitRules));
}

TEST(DefaultsWalk, SiblingsOfOneNameAreTheFirstOfThemTwice) {
  const std::string groups =
      Property("a", "<DefVal>menu</DefVal>", Property("x", "<OID>1</OID><Type>Integer</Type><DefVal>1</DefVal>")) +
      Property("a", "", Property("y", "<OID>2</OID><Type>Integer</Type><DefVal>2</DefVal>"));
  EXPECT_EQ((Lines{u"1 Integer 1", u"1 Integer 1"}), Queued(groups, DefaultsMode::kRestore));
}

TEST(DefaultsWalk, MenusThatAreMetOverAndOverDoNotMultiplyIt) {
  tests::TestTerminal terminal;
  constexpr int kLevels = 60;
  const std::string property = "<OID>1</OID><Type>Integer</Type><DefVal>1</DefVal>";
  std::string groups;
  for (int i = 0; i < kLevels; ++i) groups += "<GROUP name='a'>" + property;
  for (int i = 0; i < kLevels; ++i) groups += "</GROUP><GROUP name='a'/>";
  const std::size_t queued = Queued(groups, DefaultsMode::kRestore).size();
  EXPECT_GE(queued, std::size_t{kLevels});
  EXPECT_LE(queued, std::size_t{kLevels} * 2 * (model::KeyVisits::kMost + 1));
  const std::vector<WideString> lines = terminal.TakeDebugLines();
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(u"FAILED: WalkDefaults  [a] is met too often, nothing below it is taken\r\n", lines.front());
}

TEST(DefaultsWalk, StartsNowhereWithoutAKey) {
  const auto tree = tests::TreeOf("<GROUP name='R'/>");
  Host host;
  model::WalkDefaults(*tree, u"S", DefaultsMode::kRestore, host);
  EXPECT_TRUE(host.queued.empty());
}

TEST(ReaderCommandDefault, AFieldThatEqualsTheThirdPartKeepsItsValue) {
  // Fields of 2, 4 and 6 characters; the device's second one is as the third part has it.
  const std::string values =
      "<OID>7</OID><Type>ReaderCmd</Type><CmdString>3,2,4,6</CmdString><Dependency>x|y|AABBBBCCCCCC</Dependency>"
      "<DefVal>001111222222</DefVal>";
  Host host;
  host.device[u"7"] = u"ZZBBBBYYYYYY";
  EXPECT_EQ((Lines{u"7 ReaderCmd 00BBBB222222"}), Queued(Property("a", values), DefaultsMode::kRestore, host));
}

TEST(ReaderCommandDefault, ALayoutMayStandInATable) {
  const std::string values =
      "<OID>7</OID><Type>ReaderCmd</Type><CmdString>Table,LAYOUTS,reader</CmdString>"
      "<Dependency>x|y|AABBBBCCCCCC</Dependency><DefVal>001111222222</DefVal>";
  tests::TestTerminal terminal;
  terminal.PutTable(u"LAYOUTS", u"reader", u"3,2,4,6");
  Host host;
  host.device[u"7"] = u"ZZBBBBYYYYYY";
  EXPECT_EQ((Lines{u"7 ReaderCmd 00BBBB222222"}), Queued(Property("a", values), DefaultsMode::kRestore, host));
}

TEST(ReaderCommandDefault, StaysAsItIsWithoutWhatTheMergeNeeds) {
  const struct {
    const char* values;
    int reads;
  } cases[] = {
      {"<Type>ReaderCmd</Type><CmdString>1,2</CmdString>", 0},                                    // no dependency
      {"<Type>Octet String</Type><CmdString>1,2</CmdString><Dependency>a|b|AA</Dependency>", 0},  // another type
      {"<Type>ReaderCmd</Type><CmdString>1</CmdString><Dependency>a|b|AA</Dependency>", 1},       // a count, no widths
      {"<Type>ReaderCmd</Type><Dependency>a|b|AA</Dependency>", 1},                               // no layout
      {"<Type>ReaderCmd</Type><CmdString>0,2</CmdString><Dependency>a|b|AA</Dependency>", 1},     // no fields
      {"<Type>ReaderCmd</Type><CmdString>1,2</CmdString><Dependency>a|AA</Dependency>", 1},       // no third part
      {"<Type>ReaderCmd</Type><CmdString>1,-2</CmdString><Dependency>a|b|AA</Dependency>", 1},
      {"<Type>ReaderCmd</Type><CmdString>2000000000,0</CmdString><Dependency>a|b|AA</Dependency>", 1},
  };
  for (const auto& c : cases) {
    const auto tree = tests::TreeOf("<GROUP name='R'><OID>7</OID>" + std::string(c.values) + "</GROUP>");
    Host host;
    host.device[u"7"] = u"AA";
    WideString value = u"default";
    model::MergeReaderCommand(*tree->Find(u"R"), host, value);
    EXPECT_EQ(u"default", value) << c.values;
    EXPECT_EQ(c.reads, host.reads) << c.values;
  }
}

TEST(ReaderCommandDefault, FieldsBeyondItsEndAreLeftOut) {
  const auto tree = tests::TreeOf(
      "<GROUP name='R'><OID>7</OID><Type>ReaderCmd</Type><CmdString>2,2,4</CmdString>"
      "<Dependency>a|b|AABBBB</Dependency></GROUP>");
  Host host;
  host.device[u"7"] = u"AABBBB";
  WideString value = u"0011";
  model::MergeReaderCommand(*tree->Find(u"R"), host, value);
  EXPECT_EQ(u"AABB", value);
  value = u"0";
  model::MergeReaderCommand(*tree->Find(u"R"), host, value);
  EXPECT_EQ(u"A", value);
}

TEST(ReaderCommandDefault, TheThirdPartIsWhatIsLeftOfTheDependency) {
  const struct {
    WideStringView dependency;
    WideStringView third;
  } cases[] = {
      {u"a|b|c", u"c"},
      {u"a|b|c|d", u"c"},
      {u"a|b|", u""},
      {u"a|b|a|b|c", u"c"},  // the first two parts go with
                             // their repetitions
      {u"a|b|a|c", u"a"},
      {u"a|a|b|c", u"a"},  // a repeated first part goes before the second is looked for, and "a|b|"
                           // stands nowhere
      {u"a|a|a|b", u"a"},
      {u"0|0|0123", u"0"},
      {u"0|0|", u"0"},
      {u"a|a|a", u"a"},
      {u"a|b", u"a"},  // nothing is
                       // taken off
      {u"a|", u"a"},
      {u"a", u"a"},
      {u"|b|c", u"c"},
      {u"||c", u""},
      {u"|", u""},
      {u"", u""},
  };
  for (const auto& c : cases) EXPECT_EQ(c.third, model::ThirdPart(c.dependency)) << base::ToUtf8(c.dependency);
}

TEST(DefaultsWalk, WhatItReadsCanBeKnownBeforehand) {
  const std::string groups =
      Property("a", "<OID>1</OID><Type>ReaderCmd</Type><DefVal>01</DefVal><Dependency>a|b|c</Dependency>",
               Property("b", "<OID>2</OID><Type>ReaderCmd</Type><DefVal>01</DefVal><Dependency>a|b|c</Dependency>")) +
      Property("c", "<OID>3</OID><Type>ReaderCmd</Type><Dependency>a|b|c</Dependency>") +
      Property("d", "<OID>4</OID><Type>ReaderCmd</Type><DefVal>01</DefVal>") +
      Property("e", "<OID>5</OID><Type>Integer</Type><DefVal>1</DefVal><Dependency>a|b|c</Dependency>");
  const auto tree = tests::TreeOf("<GROUP name='R'>" + groups + "</GROUP>");
  Host host;
  model::WalkDefaults(*tree, u"R", DefaultsMode::kRestore, host);
  EXPECT_EQ(2, host.reads);
  Lines ahead;
  for (const auto& setting : model::SettingsOfDefaults(*tree, u"R")) ahead.push_back(setting.oid + u" " + setting.type);
  EXPECT_EQ((Lines{u"1 ReaderCmd", u"2 ReaderCmd"}), ahead);
}

}  // namespace
