#include "base/utf8.h"
#include "base/utf8_blocks.h"

#include "tests/printing.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <vector>

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

// The rules, byte by byte.
WideString DecodedByTheRules(std::string_view bytes) {
  constexpr struct {
    unsigned char first, last;  // of the lead bytes
    unsigned char low, high;    // of the byte behind
    std::size_t length;
  } kSequences[] = {{0x00, 0x7F, 0x00, 0xFF, 1}, {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
                    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
                    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
  const auto byteAt = [bytes](std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0u;
  };
  WideString text;
  for (std::size_t at = 0; at < bytes.size();) {
    std::uint32_t codePoint = 0xFFFD;
    std::size_t length = 1;
    for (const auto& sequence : kSequences) {
      const std::uint32_t lead = byteAt(at);
      if (lead < sequence.first || lead > sequence.last) continue;
      bool isWhole = sequence.length == 1 || (byteAt(at + 1) >= sequence.low && byteAt(at + 1) <= sequence.high);
      std::uint32_t value = sequence.length == 1 ? lead : lead & (0xFFu >> (sequence.length + 1));
      for (std::size_t i = 1; i < sequence.length; ++i) {
        isWhole = isWhole && (byteAt(at + i) & 0xC0) == 0x80;
        value = (value << 6) | (byteAt(at + i) & 0x3F);
      }
      if (!isWhole) break;
      codePoint = value;
      length = sequence.length;
    }
    if (codePoint < 0x10000) {
      text += static_cast<char16_t>(codePoint);
    } else {
      text += static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
      text += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
    }
    at += length;
  }
  return text;
}

// Texts of all kinds of characters in turn, some bytes of which are wrong.
std::string RandomBytes(std::mt19937& random) {
  const char* const characters[] = {"a",
                                    "<",
                                    " text of sixteen ",
                                    "\xC2\x80",
                                    "\xD0\x9F",
                                    "\xDF\xBF",
                                    "\xE0\xA0\x80",
                                    "\xE4\xB8\xAD",
                                    "\xED\x9F\xBF",
                                    "\xEE\x80\x80",
                                    "\xEF\xBF\xBF",
                                    "\xF0\x9F\x98\x80",
                                    "\xF4\x8F\xBF\xBF"};
  std::string bytes;
  const std::size_t wrong = random() % 3 == 0 ? 15 : 0;  // of 200
  while (random() % 12 != 0) {
    const char* const character = characters[random() % std::size(characters)];
    for (std::size_t count = 1 + random() % 20; count > 0; --count) {
      bytes += random() % 4 == 0 ? characters[random() % std::size(characters)] : character;
      if (wrong > random() % 200) bytes.back() = static_cast<char>(random());
    }
  }
  return bytes;
}

TEST(Utf8, AnyBytesAreReadByTheRulesWhateverTheProcessorCanDo) {
  std::mt19937 random(8);
  for (int round = 0; round < 5'000; ++round) {
    const std::string bytes = RandomBytes(random);
    const WideString expected = DecodedByTheRules(bytes);
    ASSERT_EQ(expected, FromUtf8(bytes)) << round;
    // In the upper half of their text.
    for (const base::Utf8Blocks* const blocks : base::UsableUtf8Blocks()) {
      std::vector<char16_t> room(bytes.size());
      char* const upperHalf = reinterpret_cast<char*>(room.data()) + bytes.size();
      std::copy(bytes.begin(), bytes.end(), upperHalf);
      const char16_t* const end = base::DecodeUtf8({upperHalf, bytes.size()}, room.data(), *blocks);
      ASSERT_EQ(expected, WideString(room.data(), static_cast<std::size_t>(end - room.data())))
          << round << blocks->name;
    }
  }
}

TEST(Utf8Blocks, ConvertAsMuchAsIsTheirs) {
  const std::string ascii(40, 'a');
  std::string cyrillic;
  for (int i = 0; i < 20; ++i) cyrillic += "\xD0\x9F";
  char16_t units[40];
  for (const base::Utf8Blocks* const blocks : base::UsableUtf8Blocks()) {
    const bool isPlain = blocks->name == std::string_view("plain");
    EXPECT_LT(ascii.size() - base::Utf8Blocks::kLeast, blocks->convert(ascii, units).bytes) << blocks->name;
    EXPECT_EQ(isPlain, blocks->convert(cyrillic, units).bytes == 0) << blocks->name;
  }
  EXPECT_STREQ("plain", base::UsableUtf8Blocks().back()->name);
}

TEST(Utf8, ATextIsCutBetweenTwoCharacters) {
  std::mt19937 random(10);
  for (int round = 0; round < 2'000; ++round) {
    const std::string bytes = RandomBytes(random);
    const std::size_t size = random() % (bytes.size() + 4);
    const std::string_view start = base::Utf8Prefix(bytes, size);
    ASSERT_LE(start.size(), size);
    ASSERT_LT(std::min(size, bytes.size()), start.size() + 4);
    ASSERT_EQ(FromUtf8(bytes), FromUtf8(start) + FromUtf8(bytes.substr(start.size()))) << round;
  }
}

}  // namespace
