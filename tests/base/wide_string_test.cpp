#include "base/wide_string.h"

#include "tests/printing.h"

namespace {

TEST(WideStrings, EqualIgnoringCaseFoldsAsciiAndLatinLettersOnly) {
  const struct {
    WideStringView a, b;
    bool equal;
  } cases[] = {
      {u"", u"", true},
      {u"Hex32", u"hEX32", true},
      {u"Hex", u"Hex32", false},
      {u"\u00C4", u"\u00E4", true},
      {u"\u00F7", u"\u00D7", false},
      {u"@", u"`", false},
      {u"\u0434", u"\u0414", false},
  };
  for (const auto& c : cases) EXPECT_EQ(c.equal, base::EqualsIgnoringCase(c.a, c.b)) << base::ToUtf8(c.a);
}

TEST(WideStrings, LessIgnoringCaseOrdersShorterTextsFirst) {
  EXPECT_TRUE(base::LessIgnoringCase(u"alpha", u"BETA"));
  EXPECT_TRUE(base::LessIgnoringCase(u"ab", u"ABC"));
  EXPECT_FALSE(base::LessIgnoringCase(u"ABC", u"abc"));
  EXPECT_TRUE(base::LessIgnoringCase(u"Z", u"_"));  // as in upper case
}

TEST(WideStrings, ToUpperLeavesDigitsAndSigns) {
  EXPECT_EQ(u"0X1F-\u00C9", base::ToUpper(WideStringView(u"0x1f-\u00E9")));
}

TEST(WideStrings, TrimTakesBlanksFromBothEndsOnly) {
  EXPECT_EQ(u"a b", base::Trim(u" \t a b\r\n"));
  EXPECT_EQ(u"", base::Trim(u" \t\r\n "));
  EXPECT_EQ(u"", base::Trim(u""));
}

}  // namespace
