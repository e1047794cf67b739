// What a listener is told of the rules of one item, as lines.
#include "rules/rule_listener.h"

#include "tests/rules/rules_fixture.h"

namespace {

using tests::Journal;
using tests::Property;
using tests::Tag;

class Report final : public rules::RuleListener {
 public:
  void OnNode(const config::ConfigKey& node, const model::MenuItem* item) override {
    lines.push_back((item == nullptr ? u"key " : u"item ") + node.FullPath());
  }
  void OnRule(int number, WideStringView text) override {
    lines.push_back(u"rule " + base::ToText(number) + u" " + WideString(text));
  }
  void OnOperand(const rules::OperandReading& reading) override {
    static constexpr WideStringView kOrigins[] = {u"nowhere", u"property", u"field", u"device"};
    lines.push_back(WideString(reading.name) + u" = '" + WideString(reading.value) + u"' of '" +
                    WideString(reading.oid) + u"' from " +
                    WideString(kOrigins[static_cast<std::size_t>(reading.origin)]) +
                    (reading.property == nullptr ? u"" : u" " + WideString(reading.property->DisplayName())));
  }
  void OnComparison(const rules::Comparison& comparison) override {
    static constexpr WideStringView kJoins[] = {u"", u"AND ", u"OR "};
    lines.push_back(WideString(kJoins[static_cast<std::size_t>(comparison.join)]) + u"'" +
                    WideString(comparison.value) + (comparison.wantsEqual ? u"' EQ '" : u"' NEQ '") +
                    WideString(comparison.wanted) + (comparison.exact ? u"' exactly: " : u"': ") +
                    (comparison.holds ? u"yes" : u"no") + (comparison.holdsSoFar ? u", so far yes" : u", so far no"));
  }
  void OnDecided(bool isCondition, bool holds) override {
    lines.push_back(WideString(isCondition ? u"condition " : u"flag ") + (holds ? u"holds" : u"does not hold"));
  }
  void OnAction(const rules::RuleAction& action) override {
    lines.push_back(u"action " + WideString(action.text) + (action.known ? u"" : u" unknown") +
                    (action.state ? u" state " + base::ToText(static_cast<int>(*action.state)) : WideString()));
  }
  void OnChoices(const model::MenuItem& item, WideStringView choices, WideStringView fallback) override {
    lines.push_back(u"choices of " + WideString(item.DisplayName()) + u": " + WideString(choices) + u" fallback '" +
                    WideString(fallback) + u"'");
  }
  void OnWireless(const rules::WirelessChange& change) override {
    static constexpr WideStringView kKinds[] = {u"choices", u"type", u"value", u"shown", u"hidden"};
    lines.push_back(u"wireless " + WideString(change.oid) + u" " +
                    WideString(kKinds[static_cast<std::size_t>(change.kind)]) + u" " + WideString(change.text));
  }

  Journal lines;
};

class RuleListenerTest : public tests::RulesTest {
 protected:
  // The item "x" (OID 9) beside "Mode" (OID 1, value 1), "Word" (OID 2) and the command 3 of two fields.
  void BuildWith(std::string_view tags) {
    fake_.Put(u"1", u"1");
    fake_.Put(u"2", u"some words");
    fake_.Put(u"3", u"1AB");
    fake_.Put(u"9", u"5");
    fake_.Put(u"77", u"on the device");
    Build(Property("Mode", "1", "Integer") + Property("Word", "2", "Octet String") +
          Property("Command", "3", "ReaderCmd", Tag("CmdString", "2,1,2")) + Property("x", "9", "Integer", tags));
  }
  Journal Evaluate() {
    rules::Rules listened{{model_, device_, symbols_, changes_, events_, edit_, boxes_, shell_, flashWrite_, &report_}};
    listened.dependencies.EvaluateDependencies(Item(u"x"));
    return std::exchange(report_.lines, {});
  }

  Report report_;
};

TEST_F(RuleListenerTest, IsToldOfEachOperandComparisonAndAction) {
  BuildWith(Tag("Dependency", "IF (Mode EQ 2 OR Word EQ \"Some Words\") AND Mode NEQ 1 THEN NoEdit ELSE NoDisplay"));
  const Journal expected = {
      u"item R\\x",
      u"rule 0 IF (Mode EQ 2 OR Word EQ \"Some Words\") AND Mode NEQ 1 THEN NoEdit ELSE NoDisplay",
      u"Mode = '1' of '1' from property Mode",
      u"'1' EQ '2': no, so far no",
      u"Word = 'some words' of '2' from property Word",
      u"OR 'some words' EQ 'Some Words': yes, so far yes",
      u"Mode = '1' of '1' from property Mode",
      u"AND '1' NEQ '1': no, so far no",
      u"condition does not hold",
      u"action NoDisplay state 1",
  };
  EXPECT_EQ(expected, Evaluate());
}

TEST_F(RuleListenerTest, IsToldWhereAFlagsOperandComesFrom) {
  const struct {
    const char* rule;
    Journal told;
  } cases[] = {
      {"this|Integer|5|NoEdit",
       {u"this = '5' of '9' from property x", u"'5' EQ '5' exactly: yes, so far yes", u"flag holds",
        u"action NoEdit state 3"}},
      {"3:2|Octet String|ab|Display",
       {u"3:2 = 'AB' of '3:2' from field Command", u"'AB' EQ 'ab' exactly: no, so far no", u"flag does not hold",
        u"action Display state 1"}},
      {"77|Octet String|Empty|NoDisplay",
       {u"77 = 'on the device' of '77' from device", u"'on the device' EQ '' exactly: no, so far no",
        u"flag does not hold", u"action NoDisplay"}},
      {"Empty|Integer||Sparkle",
       {u"Empty = '' of '' from nowhere", u"'' EQ '' exactly: yes, so far yes", u"flag holds",
        u"action Sparkle unknown"}},
  };
  for (const auto& c : cases) {
    BuildWith(Tag("Dependency", c.rule));
    Journal expected = {u"item R\\x", u"rule 0 " + base::FromUtf8(c.rule)};
    expected.insert(expected.end(), c.told.begin(), c.told.end());
    EXPECT_EQ(expected, Evaluate()) << c.rule;
  }
}

TEST_F(RuleListenerTest, IsToldOfAMalformedConditionAsOfAFlag) {
  BuildWith(Tag("Dependency", "IF Mode EQ 1 XOR Mode EQ 2 THEN NoEdit"));
  const Journal lines = Evaluate();
  EXPECT_EQ(u"'1' EQ '1': yes, so far yes", lines[3]);
  EXPECT_EQ(u"flag holds", lines[lines.size() - 2]);
  EXPECT_EQ(u"action  unknown", lines.back());
}

TEST_F(RuleListenerTest, IsToldOfNarrowedChoicesAndTheFallbackThatWasStored) {
  BuildWith(Tag("Dependency", "IF Mode EQ 1 THEN \"ChoiceFmt=5#Five|6#Six:6\"") +
            Tag("Dependency1", "IF Mode EQ 1 THEN \"ChoiceFmt=6#Six:6\""));
  const Journal lines = Evaluate();
  EXPECT_EQ(1, std::count(lines.begin(), lines.end(), u"choices of x: 5#Five|6#Six fallback ''"));
  EXPECT_EQ(1, std::count(lines.begin(), lines.end(), u"choices of x: 6#Six fallback '6'"));
}

TEST_F(RuleListenerTest, IsToldWhatTheWirelessRulesChange) {
  fake_.Put(u"1.2.840.10036.1.2.1.2.2", u"1");
  fake_.Put(u"1.2.840.10036.1.5.1.1.2", u"4");
  fake_.Put(u"1.2.840.10036.1.3.1.2.2", u"key");
  Build(Property("Authentication", "1.2.840.10036.1.2.1.2.2", "Integer") +
        Property("Encryption", "1.2.840.10036.1.5.1.1.2", "Integer") +
        Property("Key", "1.2.840.10036.1.3.1.2.2", "Hex"));
  rules::Rules listened{{model_, device_, symbols_, changes_, events_, edit_, boxes_, shell_, flashWrite_, &report_}};
  listened.wireless.VerifyNetUI();
  const auto told = [&](WideStringView line) { return std::count(report_.lines.begin(), report_.lines.end(), line); };
  EXPECT_EQ(1, told(u"wireless 1.2.840.10036.1.5.1.1.2 choices 1#Disabled|0#WEP"));
  EXPECT_EQ(1, told(u"wireless 1.2.840.10036.1.5.1.1.2 value 1"));
  EXPECT_EQ(1, told(u"wireless 1.2.840.10036.1.3.1.2.2 hidden "));
  EXPECT_EQ(0, told(u"wireless 1.2.840.10036.1.3.1.2.2 shown "));
}

TEST_F(RuleListenerTest, ChangesNothingWhetherItHearsOrNot) {
  rules::RuleListener deaf;
  Journal journals[3];
  rules::RuleListener* const listeners[] = {nullptr, &report_, &deaf};
  for (std::size_t i = 0; i < std::size(listeners); ++i) {
    fake_.Put(u"1.2.840.10036.1.2.1.2.2", u"1");
    fake_.Put(u"1.2.840.10036.1.5.1.1.2", u"4");
    fake_.Put(u"1", u"1");
    fake_.Put(u"9", u"5");
    Build(Property("Authentication", "1.2.840.10036.1.2.1.2.2", "Integer") +
          Property("Encryption", "1.2.840.10036.1.5.1.1.2", "Integer") + Property("Mode", "1", "Integer") +
          Property("x", "9", "Integer", Tag("Dependency", "IF Mode EQ 1 THEN \"ChoiceFmt=6#Six:6\"")));
    rules::Rules listened{
        {model_, device_, symbols_, changes_, events_, edit_, boxes_, shell_, flashWrite_, listeners[i]}};
    listened.dependencies.EvaluateDependencies(Item(u"x"));
    listened.wireless.VerifyNetUI();
    journals[i] = TakeJournal();
    journals[i].push_back(Item(u"x").LineText());
    journals[i].push_back(Item(u"Encryption").LineText());
  }
  EXPECT_LT(2u, journals[0].size());
  EXPECT_EQ(journals[0], journals[1]);
  EXPECT_EQ(journals[0], journals[2]);
  EXPECT_FALSE(report_.lines.empty());
}

}  // namespace
