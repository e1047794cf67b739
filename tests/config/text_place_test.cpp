#include "config/text_place.h"

#include "tests/printing.h"

#include <gtest/gtest.h>

namespace {

TEST(TextPlace, CountsLinesAndCharactersFromOneWithoutTheByteOrderMark) {
  const struct {
    WideStringView before;
    WideStringView place;
  } cases[] = {
      {u"", u"1:1"},
      {u"ab", u"1:3"},
      {u"\uFEFF", u"1:1"},
      {u"\uFEFFab\uFEFF", u"1:4"},
      {u"a\n", u"2:1"},
      {u"a\r\nb\n\tc", u"3:3"},
      {u"\U0001F600\U0001F601\U000103FF", u"1:4"},  // of two units each
      {u"\xD83D\xD83D", u"1:3"},                    // each a half of a character
      {u"\xDBFF\xE000", u"1:3"},
  };
  for (const auto& c : cases) {
    const WideString text = WideString(c.before) + u"<more";
    EXPECT_EQ(c.place, TextOf(config::PlaceIn(text, c.before.size())));
  }
}

}  // namespace
