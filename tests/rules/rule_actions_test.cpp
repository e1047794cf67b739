#include "rules/rule_actions.h"

#include "tests/printing.h"

namespace {

TEST(RuleActions, AreFoundInAnyCaseAndOnlyAsAWhole) {
  ASSERT_NE(nullptr, rules::FindAction(u"nodisplay"));
  EXPECT_EQ(rules::Effect::kHide, rules::FindAction(u"nodisplay")->effect);
  EXPECT_EQ(nullptr, rules::FindAction(u"NoDisplay "));
  EXPECT_EQ(nullptr, rules::FindAction(u""));
  // No flag takes a mark away; CheckMark does where it does not match.
  EXPECT_EQ(nullptr, rules::FindFlag(u"UnCheckMark"));
  ASSERT_NE(nullptr, rules::FindFlag(u"CheckMark"));
  EXPECT_EQ(rules::Effect::kUnmark, rules::FindFlag(u"CheckMark")->otherwise);
}

TEST(RuleActions, NarrowedChoicesMayStandInQuotesAndHaveAFallback) {
  const struct {
    WideStringView action;
    WideStringView choices;
    WideStringView fallback;
  } cases[] = {
      {u"ChoiceFmt=1#One|2#Two", u"1#One|2#Two", u""}, {u"choicefmt=1#One:1", u"1#One", u"1"},
      {u"ChoiceFmt=\"1#One:1\" more", u"1#One", u"1"}, {u"ChoiceFmt=1#One:", u"1#One", u""},
      {u"ChoiceFmt=1#One:2:3", u"1#One", u"2:3"},      {u"ChoiceFmt=", u"", u""},
  };
  for (const auto& c : cases) {
    const auto read = rules::ReadChoicesAction(c.action);
    ASSERT_TRUE(read) << base::ToUtf8(c.action);
    EXPECT_EQ(c.choices, read->choices) << base::ToUtf8(c.action);
    EXPECT_EQ(c.fallback, read->fallback) << base::ToUtf8(c.action);
  }
  EXPECT_FALSE(rules::ReadChoicesAction(u"ChoiceFmt"));
  EXPECT_FALSE(rules::ReadChoicesAction(u"NoDisplay"));
}

}  // namespace
