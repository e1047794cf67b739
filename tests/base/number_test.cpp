#include "base/number.h"

#include "tests/printing.h"

#include <limits>

namespace {

TEST(Numbers, ToLongReadsWhiteSpaceSignAndDigitsAndStopsThere) {
  const struct {
    WideStringView text;
    std::int32_t number;
  } cases[] = {
      {u"", 0},   {u"0", 0},   {u"42", 42}, {u"  \t\r\n42", 42}, {u"-7", -7},    {u"+7", 7},     {u"2x", 2},
      {u"x2", 0}, {u"- 7", 0}, {u"--7", 0}, {u"007", 7},         {u"12 34", 12}, {u"\u0664", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(c.number, base::ToLong(c.text)) << base::ToUtf8(c.text);
}

TEST(Numbers, FindLongTellsAZeroFromNoNumber) {
  for (const WideStringView text : {u"", u" ", u"-", u"+", u"abc", u"x2", u"- 7", u"--7"}) {
    EXPECT_EQ(std::nullopt, base::FindLong(text)) << base::ToUtf8(text);
  }
  EXPECT_EQ(0, base::FindLong(u" -0"));
  EXPECT_EQ(-7, base::FindLong(u"\t-7x"));
}

TEST(Numbers, ToLongSaturatesAtTheEndsOf32Bits) {
  constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
  constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(kMost, base::ToLong(u"2147483647"));
  EXPECT_EQ(kMost, base::ToLong(u"2147483648"));
  EXPECT_EQ(kLeast, base::ToLong(u"-2147483648"));
  EXPECT_EQ(kLeast, base::ToLong(u"-2147483649"));
  EXPECT_EQ(kMost, base::ToLong(WideString(10'000, u'9')));
}

TEST(Numbers, ToTextWritesEveryNumber) {
  EXPECT_EQ(u"0", base::ToText(0));
  EXPECT_EQ(u"-1", base::ToText(-1));
  EXPECT_EQ(u"-9223372036854775808", base::ToText(std::numeric_limits<std::int64_t>::min()));
}

}  // namespace
