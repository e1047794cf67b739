#include "rules/dependencies.h"

#include "tests/rules/rules_fixture.h"

namespace {

using model::DisplayState;
using tests::Group;
using tests::Journal;
using tests::Property;
using tests::Tag;

class DependenciesTest : public tests::RulesTest {
 protected:
  // An item "x" (OID 9, an Integer of value 5) with these further tags, beside "Mode" (OID 1) and "Word" (OID 2).
  void BuildWith(std::string_view tags) {
    fake_.Put(u"1", u"1");
    fake_.Put(u"2", u"some words");
    fake_.Put(u"9", u"5");
    Build(Property("Mode", "1", "Integer") + Property("Word", "2", "Octet String") +
          Property("x", "9", "Integer", tags));
  }

  model::MenuItem& X() { return Item(u"x"); }
  bool Evaluate() { return rules_.dependencies.EvaluateDependencies(X()); }

  struct Outcome {
    bool verdict;
    DisplayState state;
    WideString line;
    bool operator==(const Outcome&) const = default;
  };
  Outcome EvaluateRules(std::string_view tags) {
    BuildWith(tags);
    const bool verdict = Evaluate();
    return {verdict, X().State(), X().LineText()};
  }

  void Edit(model::MenuItem& item, WideStringView text) {
    values::PropertyValue value;
    item.Descriptor()->ParseValue(text, value);
    item.Descriptor()->SetNewValue(value);
  }
};

TEST_F(DependenciesTest, FlagRulesSetStateAndVerdict) {
  const struct {
    const char* rule;
    bool verdict;
    DisplayState state;
  } cases[] = {
      {"1|Integer|1|Display", true, DisplayState::kNormal},
      {"1|Integer|2|Display", false, DisplayState::kNotDisplayed},
      {"1|Integer|1|NoDisplay", false, DisplayState::kNotDisplayed},
      {"1|Integer|2|NoDisplay", true, DisplayState::kNormal},
      {"1|Integer|1|Blank", false, DisplayState::kBlank},
      {"1|Integer|2|Blank", true, DisplayState::kNormal},
      {"1|Integer|1|NoEdit", true, DisplayState::kNoEdit},
      {"1|Integer|2|NoEdit", true, DisplayState::kNormal},
      {"1|Integer|1|nOeDiT", true, DisplayState::kNoEdit},
      {"1|Integer|1|Unknown", true, DisplayState::kNormal},
      {"1|Integer|1|NoEdit|more", true, DisplayState::kNoEdit},
      {"2|Octet String|some words|NoEdit", true, DisplayState::kNoEdit},
      {"2|Octet String|Some words|NoEdit", true, DisplayState::kNormal},  // exactly
      {"this|Integer|5|NoEdit", true, DisplayState::kNoEdit},
      {"THIS|Integer|5|NoEdit", true, DisplayState::kNoEdit},
      {"eMpty|Integer||NoEdit", true, DisplayState::kNoEdit},
      {"77|Integer|Empty|NoEdit", true, DisplayState::kNoEdit},  // what cannot be read is empty
      {"1|Integer|EMPTY|NoEdit", true, DisplayState::kNormal},
      {"no bars", true, DisplayState::kNormal},
      {"|||", true, DisplayState::kNormal},
  };
  for (const auto& c : cases) {
    const auto outcome = EvaluateRules(Tag("Dependency", c.rule));
    EXPECT_EQ(c.verdict, outcome.verdict) << c.rule;
    EXPECT_EQ(c.state, outcome.state) << c.rule;
    EXPECT_EQ(u"x  <5>", outcome.line) << c.rule;
  }
}

TEST_F(DependenciesTest, ConditionalActionsSetTheStateAndNeverTheVerdict) {
  const struct {
    const char* action;
    DisplayState state;
  } cases[] = {
      {"Display", DisplayState::kNormal}, {"NoDisplay", DisplayState::kNotDisplayed},
      {"Blank", DisplayState::kBlank},    {"NoEdit", DisplayState::kNoEdit},
      {"noedit", DisplayState::kNoEdit},  {"Nonsense", DisplayState::kNormal},
  };
  for (const auto& c : cases) {
    const auto outcome = EvaluateRules(Tag("Dependency", std::string("IF Mode EQ 1 THEN ") + c.action));
    EXPECT_TRUE(outcome.verdict) << c.action;
    EXPECT_EQ(c.state, outcome.state) << c.action;
  }
}

TEST_F(DependenciesTest, ACheckMarkAsAFlagSetsAndClears) {
  BuildWith(Tag("DisplayName", " Beep") + Tag("Dependency", "this|Integer|5|CheckMark"));
  Evaluate();
  EXPECT_EQ(u"\u221ABeep  <5>", X().LineText());
  EXPECT_EQ((std::vector<WideString>{u"R\\x"}), shell_.changedLines);
  Edit(X(), u"6");
  Evaluate();
  EXPECT_EQ(u" Beep  <5>", X().LineText());
}

TEST_F(DependenciesTest, ACheckMarkAsAnActionOnlySetsAndAnotherActionClears) {
  BuildWith(Tag("DisplayName", " Beep") + Tag("Dependency", "IF Mode EQ 1 THEN CheckMark"));
  Evaluate();
  EXPECT_EQ(u"\u221ABeep  <5>", X().LineText());
  Edit(Item(u"Mode"), u"2");
  Evaluate();
  EXPECT_EQ(u"\u221ABeep  <5>", X().LineText());
  rules_.dependencies.ExecuteRuleAction(&X(), u"uncheckmark");
  EXPECT_EQ(u" Beep  <5>", X().LineText());
}

TEST_F(DependenciesTest, RulesRunInTheirOrderUpToTheFirstGap) {
  EXPECT_EQ(DisplayState::kNoEdit,
            EvaluateRules(Tag("Dependency", "1|Integer|1|Blank") + Tag("Dependency1", "1|Integer|1|NoEdit")).state);
  EXPECT_EQ(DisplayState::kNoEdit,
            EvaluateRules(Tag("Dependency", "a|b|c|d") + Tag("Dependency1", "1|Integer|1|NoEdit") +
                          Tag("Dependency3", "1|Integer|1|NoDisplay"))
                .state);
}

TEST_F(DependenciesTest, WithoutAFirstRuleNoneRuns) {
  EXPECT_EQ(DisplayState::kNormal,
            EvaluateRules(Tag("Dependency", "") + Tag("Dependency1", "1|Integer|1|NoEdit")).state);
}

TEST_F(DependenciesTest, AVerdictOnceClearedStaysSo) {
  const auto outcome =
      EvaluateRules(Tag("Dependency", "1|Integer|1|Blank") + Tag("Dependency1", "1|Integer|1|Display"));
  EXPECT_FALSE(outcome.verdict);
  EXPECT_EQ(DisplayState::kNormal, outcome.state);
}

TEST_F(DependenciesTest, EachEvaluationStartsFromTheNormalState) {
  BuildWith(Tag("Dependency", "IF Mode EQ 1 THEN NoDisplay"));
  Evaluate();
  EXPECT_EQ(DisplayState::kNotDisplayed, X().State());
  Edit(Item(u"Mode"), u"2");
  Evaluate();
  EXPECT_EQ(DisplayState::kNormal, X().State());
}

TEST_F(DependenciesTest, AMalformedConditionalRuleIsTakenAsAFlagRule) {
  EXPECT_EQ(DisplayState::kNormal, EvaluateRules(Tag("Dependency", "IF Mode IS 1 THEN NoEdit")).state);
  BuildWith("");
  EXPECT_FALSE(rules_.dependencies.EvaluateRule(&X(), u"IF Mode IS 1 THEN NoEdit"));
  EXPECT_FALSE(rules_.dependencies.EvaluateRule(&X(), u"1|Integer|1|NoEdit"));
  EXPECT_TRUE(rules_.dependencies.EvaluateRule(&X(), u"IF Mode EQ 2 THEN NoEdit"));
  EXPECT_EQ(DisplayState::kNormal, X().State());
}

TEST_F(DependenciesTest, WithoutAnItemOnlyTheVerdictCounts) {
  BuildWith(Tag("Dependency", "IF Mode EQ 1 THEN NoDisplay") + Tag("Dependency1", "1|Integer|1|CheckMark") +
            Tag("Dependency2", "1|Integer|1|Refresh"));
  calls_.logGets = true;
  EXPECT_TRUE(rules_.dependencies.EvaluateDependencies(*model_.FindKey(u"R\\x")));
  EXPECT_EQ(DisplayState::kNormal, X().State());
  EXPECT_EQ(u"x  <5>", X().LineText());
  EXPECT_EQ(Journal(), TakeJournal());

  BuildWith(Tag("Dependency", "1|Integer|1|NoDisplay"));
  EXPECT_FALSE(rules_.dependencies.EvaluateDependencies(*model_.FindKey(u"R\\x")));
  EXPECT_EQ(DisplayState::kNormal, X().State());
  rules_.dependencies.ExecuteRuleAction(nullptr, u"NoDisplay");
}

TEST_F(DependenciesTest, ANodeThatIsNotThereIsShown) {
  BuildWith("");
  model::MenuItem stray(nullptr, u"R\\nowhere", u"", u"");
  stray.SetState(DisplayState::kBlank);
  EXPECT_TRUE(rules_.dependencies.EvaluateDependencies(stray));
  EXPECT_EQ(DisplayState::kBlank, stray.State());
}

TEST_F(DependenciesTest, EditsThatAreNotAppliedCount) {
  BuildWith(Tag("Dependency", "1|Integer|2|NoEdit"));
  Edit(Item(u"Mode"), u"2");
  calls_.logGets = true;
  Evaluate();
  EXPECT_EQ(DisplayState::kNoEdit, X().State());
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(DependenciesTest, WhatTheModelDoesNotHoldIsReadFromTheDevice) {
  BuildWith(Tag("Dependency", "cfg.other|Octet String|on|NoEdit"));
  fake_.Put(u"cfg.other", u"on");
  calls_.logGets = true;
  Evaluate();
  EXPECT_EQ(DisplayState::kNoEdit, X().State());
  EXPECT_EQ((Journal{u"get cfg.other Octet String"}), TakeJournal());
}

TEST_F(DependenciesTest, PseudoOidsAreNeverReadFromTheDevice) {
  BuildWith(Tag("Dependency", "_local|Integer|Empty|NoEdit"));
  calls_.logGets = true;
  Evaluate();
  EXPECT_EQ(DisplayState::kNoEdit, X().State());
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(DependenciesTest, AFieldOfACommandIsCutOutOfItsValue) {
  fake_.Put(u"7", u"AABBBBCC");
  Build(Property("cmd", "7", "ReaderCmd", Tag("CmdString", "3,2,4,2")));
  const struct {
    WideStringView name;
    WideStringView value;
  } cases[] = {{u"7:1", u"AA"}, {u"7:2", u"BBBB"},       {u"7:3", u"CC"}, {u"7:4", u""},
               {u"7:0", u""},   {u"7:-2147483648", u""}, {u"7:x", u""},   {u"7", u"AABBBBCC"}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.value, rules_.operands.GetOperandValue(c.name, u"ReaderCmd")) << base::ToUtf8(c.name);
  }
  Build(Property("plain", "7", "Octet String"));
  EXPECT_EQ(u"", rules_.operands.GetOperandValue(u"7:1", u"ReaderCmd"));
}

TEST_F(DependenciesTest, ThisIsTheCommandOidOfAField) {
  fake_.Put(u"7", u"AA1");
  Build(Property("cmd", "7", "ReaderCmd", Tag("CmdString", "2,2,1") + Tag("Ordinal", "1")) +
        Group("field", Tag("CmdOID", "7:2") + Tag("Ordinal", "2") + Tag("Type", "Integer") +
                           Tag("Dependency", "this|Integer|1|NoEdit")));
  rules_.dependencies.EvaluateDependencies(Item(u"field"));
  EXPECT_EQ(DisplayState::kNoEdit, Item(u"field").State());
}

TEST_F(DependenciesTest, RefreshAsAFlagReadsInEitherCase) {
  for (const char* rule : {"this|Integer|5|Refresh", "this|Integer|4|Refresh"}) {
    BuildWith(Tag("Dependency", rule));
    fake_.Put(u"9", u"6");
    calls_.logGets = true;
    Evaluate();
    EXPECT_EQ((Journal{u"get 9 Integer"}), TakeJournal());
    EXPECT_EQ(u"x  <6>", X().LineText());
    EXPECT_EQ(u"6", X().Descriptor()->GetValue().AsText());
    calls_.logGets = false;
  }
}

TEST_F(DependenciesTest, RefreshAsAnActionReadsTheNodesOwnOid) {
  BuildWith(Tag("ChoiceFmt", "5#Five|6#Six") + Tag("Dependency", "IF Mode EQ 1 THEN Refresh"));
  fake_.Put(u"9", u"6");
  Evaluate();
  EXPECT_EQ(u"x  <Six>", X().LineText());
}

TEST_F(DependenciesTest, RefreshOfAnotherPropertySetsThatPropertyAndItsLineToo) {
  BuildWith(Tag("Dependency", "1|Integer|1|Refresh"));
  fake_.Put(u"1", u"8");
  Evaluate();
  EXPECT_EQ(u"x  <8>", X().LineText());
  EXPECT_EQ(u"Mode  <8>", Item(u"Mode").LineText());
  EXPECT_EQ(u"5", X().Descriptor()->GetValue().AsText());
}

TEST_F(DependenciesTest, RefreshOfWhatTheModelDoesNotHoldShowsTheTextItself) {
  BuildWith(Tag("Dependency", "cfg.other|Octet String||Refresh"));
  fake_.Put(u"cfg.other", u"text");
  Evaluate();
  EXPECT_EQ(u"x  <text>", X().LineText());
}

TEST_F(DependenciesTest, RefreshOfACommandsFieldReadsTheCommand) {
  const std::string command = Property("cmd", "7", "ReaderCmd", Tag("CmdString", "2,2,1") + Tag("Ordinal", "1")) +
                              Group("other", Tag("CmdOID", "7:1") + Tag("Ordinal", "2") + Tag("Type", "Octet String"));
  for (const char* rule : {"this|Integer|1|Refresh", "7:2|Integer|1|Refresh", "IF nothing EQ 1 THEN x ELSE Refresh"}) {
    fake_.Put(u"7", u"AA1");
    Build(command + Group("field", Tag("CmdOID", "7:2") + Tag("Ordinal", "3") + Tag("Type", "Integer") +
                                       Tag("Dependency", rule)));
    fake_.Put(u"7", u"BB2");
    calls_.logGets = true;
    rules_.dependencies.EvaluateDependencies(Item(u"field"));
    calls_.logGets = false;
    EXPECT_EQ((Journal{u"get 7 ReaderCmd"}), TakeJournal()) << rule;
    EXPECT_EQ(u"  <2>", Item(u"field").LineText()) << rule;
    EXPECT_EQ(u"  <BB>", Item(u"other").LineText()) << rule;
  }
  // The field need not be an entry of its own.
  Build(command + Property("x", "9", "Integer", Tag("Dependency", "7:2|Integer|1|Refresh")));
  fake_.Put(u"7", u"CC3");
  Evaluate();
  EXPECT_EQ(u"x  <3>", X().LineText());
}

TEST_F(DependenciesTest, RefreshOfACommandBringsFieldsBehindAGapToo) {
  fake_.Put(u"7", u"AABBBCC");
  Build(
      Property("cmd", "7", "ReaderCmd",
               Tag("CmdString", "3,2,3,2") + Tag("Ordinal", "1") + Tag("Dependency", "this|ReaderCmd||Refresh")) +
      Group("f3", Tag("DisplayName", "f3") + Tag("CmdOID", "7:3") + Tag("Ordinal", "2") + Tag("Type", "Octet String")));
  fake_.Put(u"7", u"XXYYYZZ");
  rules_.dependencies.EvaluateDependencies(Item(u"cmd"));
  EXPECT_EQ(u"f3  <ZZ>", Item(u"f3").LineText());
}

TEST_F(DependenciesTest, ARefreshMakesAvailableWhatCouldNotBeRead) {
  fake_[u"9"].getResult = platform::kFailed;
  BuildWith(Tag("ChoiceFmt", "5#Five|6#Six") + Tag("Dependency", "this|Integer|5|Refresh"));
  EXPECT_EQ(u"x  <Unavailable>", X().LineText());
  EXPECT_TRUE(X().Descriptor()->IsReadOnly());
  fake_[u"9"].getResult = platform::kOk;
  fake_[u"9"].text = std::nullopt;  // no text is no value
  Evaluate();
  EXPECT_EQ(u"x  <Unavailable>", X().LineText());
  fake_.Put(u"9", u"6");
  Evaluate();
  EXPECT_EQ(u"x  <Six>", X().LineText());
  EXPECT_FALSE(X().Descriptor()->IsReadOnly());
  EXPECT_EQ(u"Integer", X().Descriptor()->EditorName());
}

TEST_F(DependenciesTest, ACommandThatBecomesReadableBringsItsFields) {
  fake_[u"7"].getResult = platform::kFailed;
  Build(Property("cmd", "7", "ReaderCmd",
                 Tag("CmdString", "2,2,1") + Tag("Ordinal", "1") + Tag("Dependency", "this|ReaderCmd||Refresh")) +
        Group("field",
              Tag("DisplayName", "field") + Tag("CmdOID", "7:2") + Tag("Ordinal", "2") + Tag("Type", "Integer")));
  EXPECT_EQ(u"field  <Unavailable>", Item(u"field").LineText());
  rules_.dependencies.EvaluateDependencies(Item(u"cmd"));
  EXPECT_EQ(u"field  <Unavailable>", Item(u"field").LineText());
  fake_[u"7"].getResult = platform::kOk;
  fake_.Put(u"7", u"AA5");
  rules_.dependencies.EvaluateDependencies(Item(u"cmd"));
  EXPECT_EQ(u"field  <5>", Item(u"field").LineText());
  EXPECT_EQ(u"Integer", Item(u"field").Descriptor()->EditorName());
}

TEST_F(DependenciesTest, ARefreshOfACommandThatFailsKeepsAnEditOfItsField) {
  fake_.Put(u"7", u"AA5");
  Build(Property("cmd", "7", "ReaderCmd",
                 Tag("CmdString", "2,2,1") + Tag("Ordinal", "1") + Tag("Dependency", "this|ReaderCmd||Refresh")) +
        Group("field",
              Tag("DisplayName", "field") + Tag("CmdOID", "7:2") + Tag("Ordinal", "2") + Tag("Type", "Integer")));
  Edit(Item(u"field"), u"8");
  fake_[u"7"].getResult = platform::kFailed;
  rules_.dependencies.EvaluateDependencies(Item(u"cmd"));
  EXPECT_EQ(u"8", Item(u"field").Descriptor()->GetValue().AsText());
}

TEST_F(DependenciesTest, ARefreshThatFailsShowsWhatTheDeviceLastTookAndNoRefusedEdit) {
  BuildWith(Tag("Dependency", "this|Integer|5|Refresh"));
  rules_.items.Settle(u"9", values::PropertyValue::OfInteger(77), false);
  fake_[u"9"].getResult = platform::kFailed;
  Evaluate();
  EXPECT_EQ(u"x  <5>", X().LineText());
  EXPECT_EQ(u"77", X().Descriptor()->OfferedValue().AsText());
}

TEST_F(DependenciesTest, RefreshShowsNoSecretInClear) {
  BuildWith(Tag("PassWordChar", "*") + Tag("Dependency", "cfg.other|Octet String||Refresh"));
  fake_.Put(u"cfg.other", u"secret");
  Evaluate();
  EXPECT_EQ(u"x  <******>", X().LineText());
  // Of what no entry stands for, the rule's own type says that it is one.
  for (const char* type : {"Password", "Hex"}) {
    BuildWith(Tag("Dependency", "cfg.other|" + std::string(type) + "|x|Refresh"));
    fake_.Put(u"cfg.other", u"secret");
    Evaluate();
    EXPECT_EQ(u"x  <******>", X().LineText()) << type;
  }
}

TEST_F(DependenciesTest, ARefreshInTheFirstMenuWaitsForTheProperty) {
  for (const char* rule : {"1.1|Password|x|Refresh", "IF nothing NEQ 1 THEN Refresh"}) {
    fake_.Put(u"1.1", u"secret");
    const std::string xml = "<GROUP name='R'>" +
                            Property("pin", "1.1", "Password", Tag("PassWordChar", "*") + Tag("Dependency", rule)) +
                            "</GROUP>";
    model_.BuildTopLevel(tests::TreeOf(xml, config::PDataStore::kTopLevelOnly), u"R");
    rules_.dependencies.EvaluateDependencies(Item(u"pin"));
    EXPECT_EQ(u"pin", Item(u"pin").LineText()) << rule;
    ASSERT_TRUE(model_.Build(tests::TreeOf(xml), u"R"));
    rules_.dependencies.EvaluateDependencies(Item(u"pin"));
    EXPECT_EQ(u"pin  <******>", Item(u"pin").LineText()) << rule;
  }
}

TEST_F(DependenciesTest, RefreshOfAnOidThatIsNoneAsksForNothing) {
  BuildWith(Tag("Dependency", "_Local|Integer|1|Refresh"));
  calls_.logGets = true;
  Evaluate();
  EXPECT_EQ(Journal{}, TakeJournal());
  EXPECT_EQ(u"x  <5>", X().LineText());
}

TEST_F(DependenciesTest, ARefreshThatFailsKeepsTheValue) {
  BuildWith(Tag("Dependency", "this|Integer|5|Refresh"));
  fake_[u"9"].getResult = platform::kFailed;
  Evaluate();
  EXPECT_EQ(u"x  <5>", X().LineText());
  fake_[u"9"].getResult = platform::kOk;
  BuildWith(Tag("Dependency", "this||5|Refresh"));  // without a type nothing is asked for
  Evaluate();
  EXPECT_EQ(u"x  <5>", X().LineText());
  device_.Release();
  fake_.reachable = false;
  Evaluate();
  EXPECT_EQ(u"x  <5>", X().LineText());
}

TEST_F(DependenciesTest, ARefreshThatReadsAnEmptyTextEmptiesTheValue) {
  BuildWith(Tag("Dependency", "this|Integer|5|Refresh"));
  X().Descriptor()->SetNewValue(values::PropertyValue::OfInteger(7));
  fake_.Put(u"9", u"");
  Evaluate();
  EXPECT_EQ(u"x  <>", X().LineText());
  EXPECT_TRUE(X().Descriptor()->GetValue().IsEmpty());
  EXPECT_FALSE(X().Descriptor()->IsChanged());
}

TEST_F(DependenciesTest, ANarrowedChoiceListLivesInTheProperty) {
  BuildWith(Tag("ChoiceFmt", "1#A|5#E|6#F") + Tag("Dependency", "IF Mode EQ 1 THEN ChoiceFmt=\"5#E|6#F\""));
  Evaluate();
  EXPECT_EQ(u"5#E|6#F", X().Descriptor()->ChoiceText());
  EXPECT_EQ(u"1#A|5#E|6#F", model_.FindKey(u"R\\x")->Value(u"ChoiceFmt"));
  Edit(Item(u"Mode"), u"2");
  Evaluate();
  EXPECT_EQ(u"5#E|6#F", X().Descriptor()->ChoiceText());  // until a rule sets others
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(DependenciesTest, AnEmptyFallbackIsNone) {
  fake_.Put(u"9", u"old");
  Build(Property("x", "9", "Octet String", Tag("Dependency", "IF x NEQ 1 THEN \"ChoiceFmt=5#Five|6#Six:\"")));
  Evaluate();
  EXPECT_EQ(Journal(), TakeJournal());
  EXPECT_EQ(u"5#Five|6#Six", X().Descriptor()->ChoiceText());
  EXPECT_EQ(u"x  <old>", X().LineText());
}

TEST_F(DependenciesTest, NarrowedChoicesRewriteTheLine) {
  BuildWith(Tag("ChoiceFmt", "1#A|5#E") + Tag("Dependency", "IF Mode EQ 1 THEN ChoiceFmt=\"5#Five|6#Six\""));
  EXPECT_EQ(u"x  <E>", X().LineText());
  Evaluate();
  EXPECT_EQ(u"x  <Five>", X().LineText());
  EXPECT_EQ((std::vector<WideString>{u"R\\x"}), shell_.changedLines);
}

TEST_F(DependenciesTest, TheFallbackReplacesAValueThatIsNoLongerAChoice) {
  BuildWith(Tag("ChoiceFmt", "1#A|5#E|6#F") + Tag("Dependency", "IF Mode EQ 1 THEN \"choicefmt=1#A one|6#F:6\""));
  Evaluate();
  EXPECT_EQ((Journal{u"set 9 Integer 6"}), TakeJournal());
  EXPECT_EQ(u"x  <F>", X().LineText());
  Evaluate();
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(DependenciesTest, TheFallbackIsNotNeededForAValueAmongTheChoices) {
  BuildWith(Tag("Dependency", "IF Mode EQ 1 THEN ChoiceFmt=\"1#A|5#E:1\""));
  Evaluate();
  EXPECT_EQ(Journal(), TakeJournal());
  EXPECT_EQ(u"1#A|5#E", X().Descriptor()->ChoiceText());
}

TEST_F(DependenciesTest, ARefusedFallbackIsShownOnceAndOfferedByTheEditorAlone) {
  BuildWith(Tag("_OnError", "Not possible.") + Tag("Dependency", "IF Mode EQ 1 THEN ChoiceFmt=\"1#A|6#F:6\""));
  fake_[u"9"].setResult = platform::kAccessDenied;
  Evaluate();
  EXPECT_EQ((Journal{u"set 9 Integer 6 refused", u"box Error: Not possible. [48]"}), TakeJournal());
  EXPECT_EQ(u"x  <5>", X().LineText());
  EXPECT_EQ(u"5", rules_.operands.ResolveOperand(u"x"));
  EXPECT_EQ(u"6", X().Descriptor()->OfferedValue().AsText());
  Evaluate();
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(DependenciesTest, NarrowedChoicesMayBeASymbol) {
  BuildWith(Tag("Dependency", "IF Mode EQ 1 THEN ChoiceFmt=SYM_MODES:2"));
  Evaluate();
  EXPECT_EQ((Journal{u"set 9 Integer 2"}), TakeJournal());
  EXPECT_EQ(u"x  <Two>", X().LineText());
}

}  // namespace
