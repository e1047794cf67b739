#include "rules/rule_tokens.h"

#include "tests/printing.h"

#include <vector>

namespace {

std::vector<WideString> TokensOf(WideStringView text) {
  std::vector<WideString> tokens;
  while (!text.empty()) tokens.push_back(rules::NextRuleToken(text).text);
  return tokens;
}

TEST(RuleTokens, AreDividedByBlanksQuotesAndParentheses) {
  const struct {
    WideStringView text;
    std::vector<WideString> tokens;
  } cases[] = {
      {u"", {}},
      {u"IF a EQ 1", {u"IF", u"a", u"EQ", u"1"}},
      {u" \t IF  a\tb  ", {u"IF", u"a\tb"}},  // a tab divides nothing
      {u"\"Key Index\" EQ \"a b\"", {u"Key Index", u"EQ", u"a b"}},
      {u"\"a\"b", {u"a", u"b"}},         // the closing quote ends the token
      {u"a\"b c\"", {u"a\"b", u"c\""}},  // a quote counts only in front
      {u"\"\" x", {u"", u"x"}},          // an empty text in quotes is a token
      {u"\"open to the end", {u"open to the end"}},
      {u"a)b", {u"a", u")b"}},                // ")" begins the next token
      {u"\"a)b\" c", {u"a", u")b\"", u"c"}},  // in quotes, too
      {u"))", {u")", u")"}},
      {u") THEN", {u")", u"THEN"}},
      {u"((a EQ", {u"((a", u"EQ"}},
      {u"( a", {u"(", u"a"}},
      {u"(\"a b\" EQ", {u"(a b", u"EQ"}},
  };
  for (const auto& c : cases) EXPECT_EQ(c.tokens, TokensOf(c.text)) << base::ToUtf8(c.text);
}

TEST(RuleTokens, OnlyATokenThatStoodInQuotesAsAWholeIsQuoted) {
  const struct {
    WideStringView text;
    bool quoted;
    bool opensGroup;
  } cases[] = {
      {u"\"(a\"", true, true},
      {u"(\"a\"", false, true},
      {u"a", false, false},
      {u"\"a\"", true, false},
  };
  for (const auto& c : cases) {
    WideStringView rest = c.text;
    const rules::RuleToken token = rules::NextRuleToken(rest);
    EXPECT_EQ(c.quoted, token.quoted) << base::ToUtf8(c.text);
    EXPECT_EQ(c.opensGroup, token.OpensGroup()) << base::ToUtf8(c.text);
  }
}

TEST(RuleTokens, AnEmptyTextGivesAnEmptyToken) {
  WideStringView rest = u"   ";
  EXPECT_EQ(u"", rules::NextRuleToken(rest).text);
  EXPECT_EQ(u"", rest);
}

TEST(RuleTokens, ARuleThatIsNoConditionHasFourPartsWhateverIsWritten) {
  const struct {
    WideStringView text;
    std::vector<WideStringView> parts;
  } cases[] = {
      {u"1.1|Integer|5|Display", {u"1.1", u"Integer", u"5", u"Display"}},
      {u"1.1|Integer|empty|Display", {u"1.1", u"Integer", u"", u"Display"}},
      {u"Empty||Empty|NoEdit", {u"Empty", u"", u"", u"NoEdit"}},
      {u"1.1|Integer", {u"1.1", u"Integer", u"", u""}},
      {u"a|b|c|d|e", {u"a", u"b", u"c", u"d"}},
      {u"", {u"", u"", u"", u""}},
  };
  for (const auto& c : cases) {
    const rules::FlagRule rule = rules::ReadFlagRule(c.text);
    EXPECT_EQ(c.parts, (std::vector<WideStringView>{rule.name, rule.type, rule.wanted, rule.flag}))
        << base::ToUtf8(c.text);
  }
}

}  // namespace
