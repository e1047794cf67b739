#include "rules/rule_condition.h"

#include "tests/printing.h"

#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

// Items by display name; any other has no value.
class Items final : public rules::OperandSource {
 public:
  explicit Items(std::map<WideString, WideString> values) : values_(std::move(values)) {}

  WideString ResolveOperand(WideStringView displayName) override {
    asked.emplace_back(displayName);
    const auto found = values_.find(WideString(displayName));
    return found == values_.end() ? WideString() : found->second;
  }

  std::vector<WideString> asked;

 private:
  std::map<WideString, WideString> values_;
};

// The chosen action, "-" for none, "malformed" for no conditional rule.
WideString Choose(WideStringView rule) {
  Items items(
      std::map<WideString, WideString>{{u"t", u"1"}, {u"f", u"0"}, {u"Key Index", u"Enter Key"}, {u"Mode", u"On"}});
  const auto action = rules::ChooseAction(rule, items);
  if (!action) return u"malformed";
  return action->empty() ? u"-" : *action;
}

TEST(ConditionalRule, ChoosesTheActionAfterThenOrElse) {
  const struct {
    WideStringView rule;
    WideStringView chosen;
  } cases[] = {
      {u"IF t EQ 1 THEN NoEdit", u"NoEdit"},
      {u"IF t EQ 1 THEN NoEdit ELSE Blank", u"NoEdit"},
      {u"IF t EQ 1 THEN NoEdit and more of it", u"NoEdit"},  // what follows a chosen THEN does not count
      {u"IF t EQ 2 THEN NoEdit ELSE Blank", u"Blank"},
      {u"IF t EQ 2 THEN NoEdit else Blank", u"Blank"},  // ELSE in any case
      {u"IF t EQ 2 THEN NoEdit", u"-"},                 // handled all the same
      {u"IF t EQ 2 THEN NoEdit OTHERWISE Blank", u"-"},
      {u"IF t EQ 2 THEN NoEdit ELSE", u"-"},
      {u"IF t NEQ 2 THEN NoEdit", u"NoEdit"},
      {u"IF Mode EQ oN THEN NoEdit", u"NoEdit"},  // without regard to case
      {u"IF Mode NEQ oN THEN NoEdit ELSE Blank", u"Blank"},
      {u"IF \"Key Index\" EQ \"enter key\" THEN NoEdit", u"NoEdit"},
      {u"IF unknown EQ \"\" THEN NoEdit", u"NoEdit"},
      {u"IF t EQ 1 THEN \"ChoiceFmt=1#A b|2#C:1\"", u"ChoiceFmt=1#A b|2#C:1"},
      {u"IF t EQ 1 THEN ChoiceFmt=\"1#A|2#C:1\"", u"ChoiceFmt=\"1#A|2#C:1\""},
      {u"  IF   t   EQ   1   THEN   NoEdit  ", u"NoEdit"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.chosen, Choose(c.rule)) << base::ToUtf8(c.rule);
}

TEST(ConditionalRule, TermsCombineStrictlyFromLeftToRight) {
  const struct {
    WideStringView condition;
    bool holds;
  } cases[] = {
      {u"t EQ 1 OR t EQ 1 AND f EQ 1", false},  // (true OR true) AND false
      {u"f EQ 1 AND f EQ 1 OR t EQ 1", true},
      {u"f EQ 1 OR t EQ 1 AND t EQ 1", true},
      {u"t EQ 1 AND f EQ 1 OR f EQ 1", false},
  };
  for (const auto& c : cases) {
    const WideString rule = u"IF " + WideString(c.condition) + u" THEN Yes ELSE No";
    EXPECT_EQ(c.holds ? u"Yes" : u"No", Choose(rule)) << base::ToUtf8(rule);
  }
}

TEST(ConditionalRule, AGroupMayStandFirst) {
  const struct {
    WideStringView rule;
    WideStringView chosen;
  } cases[] = {
      {u"IF (t EQ 1 OR f EQ 1) AND f EQ 1 THEN Yes ELSE No", u"No"},
      {u"IF (f EQ 1) OR t EQ 1 THEN Yes ELSE No", u"Yes"},
      {u"IF ( t EQ 1 ) AND t EQ 1 THEN Yes", u"Yes"},
      {u"IF ( (t EQ 1) AND f EQ 1) OR t EQ 1 THEN Yes", u"Yes"},
      {u"IF  (\"Key Index\" EQ \"Enter Key\") AND t EQ 1 THEN Yes", u"Yes"},
      {u"IF (t EQ 1) THEN Yes", u"Yes"},
      {u"IF \"t\" EQ 1 AND (t EQ 1) THEN Yes", u"malformed"},
      {u"IF t EQ 1 AND (t EQ 1) THEN Yes", u"malformed"},
      {u"IF (t EQ 1) AND (t EQ 1) THEN Yes", u"malformed"},
      {u"IF \"(t\" EQ 1 THEN Yes", u"malformed"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.chosen, Choose(c.rule)) << base::ToUtf8(c.rule);
}

TEST(ConditionalRule, ParenthesesThatStandTogetherOpenOneGroup) {
  // The second ")" ends the condition, so THEN is taken for the action.
  EXPECT_EQ(u"THEN", Choose(u"IF ((t EQ 1) AND t EQ 1) THEN Yes"));
}

TEST(ConditionalRule, AQuotedTextIsCutAtAParenthesis) {
  // The rest, "b" and a quote, is no connective.
  EXPECT_EQ(u"malformed", Choose(u"IF t EQ \"a)b\" THEN Yes"));
  EXPECT_EQ(u"Yes", Choose(u"IF (t EQ \"1) THEN Yes"));
}

TEST(ConditionalRule, MalformedConditionsAreNoConditionalRules) {
  for (const WideStringView rule :
       {u"", u"if t EQ 1 THEN a", u"IF", u"IF t", u"IF t EQ", u"IF t EQ 1", u"IF t eq 1 THEN a", u"IF t IS 1 THEN a",
        u"IF t EQ 1 then a", u"IF t EQ 1 and t EQ 1 THEN a", u"IF t EQ 1 XOR t EQ 1 THEN a", u"IF t EQ 1 AND THEN a",
        u"IF (t EQ 1 THEN a", u"1.2|Integer|1|NoEdit", u"IF THEN a"}) {
    EXPECT_EQ(u"malformed", Choose(rule)) << base::ToUtf8(rule);
  }
}

TEST(ConditionalRule, OperandsAreAskedForInTheirOrderAndOnceEach) {
  Items items(std::map<WideString, WideString>{{u"a", u"1"}});
  rules::ChooseAction(u"IF a EQ 1 OR b EQ c AND d NEQ e THEN x", items);
  EXPECT_EQ((std::vector<WideString>{u"a", u"b", u"d"}), items.asked);
}

TEST(ConditionalRule, ManyParenthesesNeedNoStack) {
  WideString rule = u"IF ";
  for (int i = 0; i < 200'000; ++i) rule += u"( ";
  rule += u"t EQ 1";
  for (int i = 0; i < 200'000; ++i) rule += u" )";
  EXPECT_EQ(u"Yes", Choose(rule + u" THEN Yes"));
}

// A second reading of the grammar, as plain as it can be: a group is the function itself on a copy of the text.
class PlainReading {
 public:
  explicit PlainReading(Items& items) : items_(items) {}

  std::optional<WideString> Rule(WideString text) {
    if (Next(text) != u"IF") return std::nullopt;
    bool result = false;
    if (!Condition(text, result)) return std::nullopt;
    const WideString action = Next(text);
    if (result) return action;
    const WideString otherwise = Next(text);
    if (base::ToUpper(otherwise) != u"ELSE") return WideString();
    return Next(text);
  }

 private:
  static constexpr unsigned kNone = 0xFFFF;

  static WideString Trimmed(WideString text) {
    while (!text.empty() && WideString(u" \t\r\n").find(text.front()) != WideString::npos) text.erase(0, 1);
    while (!text.empty() && WideString(u" \t\r\n").find(text.back()) != WideString::npos) text.pop_back();
    return text;
  }

  static WideString Next(WideString& text) {
    WideString token;
    text = Trimmed(text);
    if (text.empty()) return token;
    if (text[0] == u'(' || text[0] == u')') {
      token += text[0];
      text.erase(0, 1);
    }
    const bool quoted = !text.empty() && text[0] == u'"';
    if (quoted) text.erase(0, 1);
    while (!text.empty()) {
      const char16_t unit = text[0];
      if (unit == u')') return token;
      text.erase(0, 1);
      if (unit == (quoted ? u'"' : u' ')) return token;
      token += unit;
    }
    return token;
  }

  bool Condition(WideString& text, bool& result) {
    const WideString saved = Trimmed(text);
    unsigned accumulator = kNone;
    WideString connective;
    for (;;) {
      const WideString token = Next(text);
      bool term = false;
      if (!token.empty() && token[0] == u'(') {
        if (accumulator != kNone || saved[0] != u'(') return false;
        WideString group = saved;
        while (!group.empty() && group[0] == u'(') group.erase(0, 1);
        if (!Condition(group, term)) return false;
        text = group;
      } else {
        const WideString left = base::ToUpper(items_.ResolveOperand(token));
        const WideString relation = Next(text);
        if (relation != u"EQ" && relation != u"NEQ") return false;
        const bool equal = left == base::ToUpper(Next(text));
        term = relation == u"EQ" ? equal : !equal;
      }
      if (accumulator == kNone) {
        accumulator = term ? 1 : 0;
      } else if (connective == u"AND") {
        accumulator = accumulator != 0 && term ? 1 : 0;
      } else {
        accumulator = accumulator != 0 || term ? 1 : 0;
      }
      connective = Next(text);
      if (connective == u")" || connective == u"THEN") {
        result = accumulator == 1;
        return true;
      }
      if (connective != u"AND" && connective != u"OR") return false;
    }
  }

  Items& items_;
};

class RandomRules {
 public:
  // A rule by the grammar, then in half of all cases with a few words changed, added or taken away.
  WideString Make() {
    std::vector<WideString> words{u"IF"};
    Condition(words, 0);
    words.insert(words.end(), {u"THEN", Pick(kActions)});
    if (Below(2) == 0) words.insert(words.end(), {Below(4) == 0 ? u"else" : u"ELSE", Pick(kActions)});
    if (Below(2) == 0) Spoil(words);
    WideString text;
    for (const WideString& word : words) {
      text += word;
      // Parentheses stick to their neighbours as authors write them, and sometimes blanks are missing or doubled.
      const bool sticks = !word.empty() && word.back() == u'(' && Below(2) == 0;
      if (!sticks) text += WideString(Below(12) == 0 ? 0 : 1 + Below(6) / 5, u' ');
    }
    return text;
  }

  std::map<WideString, WideString> MakeValues() {
    std::map<WideString, WideString> values;
    for (const WideStringView name : {u"a", u"b", u"c d"}) values[WideString(name)] = Pick(kValues);
    return values;
  }

 private:
  static inline const std::vector<WideString> kNames{u"a", u"b", u"\"c d\"", u"none"};
  static inline const std::vector<WideString> kValues{u"1", u"0", u"x", u"X", u"two words", u""};
  static inline const std::vector<WideString> kLiterals{u"1", u"0", u"x", u"\"two words\"", u"\"\"", u"\"TWO WORDS\""};
  static inline const std::vector<WideString> kActions{u"NoEdit", u"Blank", u"\"ChoiceFmt=1#A b:1\"", u"THEN", u")"};
  static inline const std::vector<WideString> kStrays{u"(",    u")",  u"\"", u"AND", u"OR",    u"EQ", u"NEQ", u"THEN",
                                                      u"ELSE", u"IF", u"a",  u"and", u"\"(\"", u"((", u"))",  u""};

  std::size_t Below(std::size_t limit) { return random_() % limit; }
  const WideString& Pick(const std::vector<WideString>& from) { return from[Below(from.size())]; }

  void Condition(std::vector<WideString>& words, int depth) {
    if (depth < 3 && Below(3) == 0) {
      words.push_back(u"(");
      Condition(words, depth + 1);
      words.push_back(u")");
    } else {
      Comparison(words);
    }
    while (Below(2) == 0) {
      words.push_back(Below(2) == 0 ? u"AND" : u"OR");
      Comparison(words);
    }
  }

  void Comparison(std::vector<WideString>& words) {
    words.insert(words.end(), {Pick(kNames), Below(2) == 0 ? u"EQ" : u"NEQ", Pick(kLiterals)});
  }

  void Spoil(std::vector<WideString>& words) {
    for (std::size_t i = 1 + Below(3); i > 0 && !words.empty(); --i) {
      const auto at = words.begin() + static_cast<std::ptrdiff_t>(Below(words.size()));
      switch (Below(3)) {
        case 0: words.erase(at); break;
        case 1: words.insert(at, Pick(kStrays)); break;
        default: *at = Pick(kStrays); break;
      }
    }
  }

  std::mt19937 random_{20240607};
};

TEST(ConditionalRule, ReadsAsAPlainSecondReadingOfTheGrammarDoes) {
  constexpr int kPairs = KEL_SANITIZED ? 20'000 : 100'000;
  RandomRules random;
  int conditional = 0;
  int withAction = 0;
  for (int i = 0; i < kPairs; ++i) {
    const WideString rule = random.Make();
    const auto values = random.MakeValues();
    Items items(values);
    Items plainItems(values);
    const auto action = rules::ChooseAction(rule, items);
    ASSERT_EQ(PlainReading(plainItems).Rule(rule), action) << base::ToUtf8(rule);
    ASSERT_EQ(plainItems.asked, items.asked) << base::ToUtf8(rule);
    conditional += action.has_value() ? 1 : 0;
    withAction += action && !action->empty() ? 1 : 0;
  }
  // The sample is worth something: neither side is rare.
  EXPECT_GT(conditional, kPairs / 4);
  EXPECT_LT(conditional, kPairs * 3 / 4);
  EXPECT_GT(withAction, kPairs / 8);
}

}  // namespace
