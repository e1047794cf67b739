#include "base/utf8.h"

#include "tests/printing.h"

#include <random>

namespace {

using base::FromUtf8;
using base::ToUtf8;

TEST(Utf8, WellFormedSequencesOfEveryLengthAreRead) {
  const struct {
    std::string_view bytes;
    WideStringView text;
  } cases[] = {
      {"", u""},
      {"plain", u"plain"},
      {"\xC3\xA4", u"\u00E4"},
      {"\xE2\x88\x9A", u"\u221A"},
      {"\xF0\x9F\x98\x80", u"\U0001F600"},
      {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.text, FromUtf8(c.bytes));
    EXPECT_EQ(c.bytes, ToUtf8(c.text));
  }
}

TEST(Utf8, EachByteOfABadSequenceBecomesAReplacementCharacter) {
  const struct {
    std::string_view bytes;
    WideStringView text;
  } cases[] = {
      {"\xE4", u"\uFFFD"},                                // Latin-1
      {"K\xFCrze", u"K\uFFFDrze"},                        // Latin-1 in a word
      {"\x80", u"\uFFFD"},                                // a continuation alone
      {"\xC0\xAF", u"\uFFFD\uFFFD"},                      // overlong
      {"\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},            // overlong
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last code point
      {"\xE2\x88", u"\uFFFD\uFFFD"},                      // cut short
      {"\xE2\x88"
       "a",
       u"\uFFFD\uFFFDa"},
      {"\xFF", u"\uFFFD"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.text, FromUtf8(c.bytes));
}

TEST(Utf8, ALoneSurrogateIsWrittenAsTheReplacementCharacter) {
  EXPECT_EQ("\xEF\xBF\xBD", ToUtf8(WideString(1, char16_t{0xD800})));
  EXPECT_EQ(
      "\xEF\xBF\xBD"
      "a",
      ToUtf8(WideString{char16_t{0xDC00}, u'a'}));
  EXPECT_EQ("\xEF\xBF\xBD", ToUtf8(WideString(1, char16_t{0xDBFF})));
}

TEST(Utf8, WhateverIsReadIsWrittenAndReadAgainUnchanged) {
  std::mt19937 random(7);
  for (int round = 0; round < 20'000; ++round) {
    std::string bytes(random() % 12, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    const WideString text = FromUtf8(bytes);
    ASSERT_EQ(text, FromUtf8(ToUtf8(text)));
  }
}

}  // namespace
