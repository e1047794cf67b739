#include "simulator/key_decoder.h"

#include "platform/messages.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

namespace key = platform::key;
using platform::host::KeyStroke;
using simulator::KeyDecoder;

struct Expected {
  std::uint16_t virtualKey;
  char16_t character = 0;
  bool shift = false;
  bool control = false;
};

void ExpectKey(const Expected& expected, const std::optional<KeyStroke>& stroke, const std::string& bytes) {
  ASSERT_TRUE(stroke) << ::testing::PrintToString(bytes);
  EXPECT_EQ(expected.virtualKey, stroke->virtualKey) << ::testing::PrintToString(bytes);
  EXPECT_EQ(expected.character, stroke->character) << ::testing::PrintToString(bytes);
  EXPECT_EQ(expected.shift, stroke->shift) << ::testing::PrintToString(bytes);
  EXPECT_EQ(expected.control, stroke->control) << ::testing::PrintToString(bytes);
}

const struct {
  std::string bytes;
  Expected key;
} kKeys[] = {
    {"\x1B[A", {key::kUp}},
    {"\x1BOB", {key::kDown}},
    {"\x1B[B", {key::kDown}},
    {"\x1BOD", {key::kLeft}},
    {"\x1B[H", {key::kHome}},
    {"\x1B[1~", {key::kHome}},
    {"\x1B[8~", {key::kEnd}},
    {"\x1B[2~", {key::kInsert}},
    {"\x1B[3~", {key::kDelete}},
    {"\x1B[6~", {key::kPageDown}},
    {"\x1B[Z", {key::kTab, u'\t', true}},
    {"\x1BOM", {key::kEnter, u'\r'}},
    {"\x1BOP", {key::kF1}},
    {"\x1B[[D", {key::kF4}},
    {"\x1B[14~", {key::kF4}},
    {"\x1B[1;2D", {key::kLeft, 0, true}},
    {"\x1B[3;5~", {key::kDelete, 0, false, true}},
    {"\r", {key::kEnter, u'\r'}},
    {"\n", {key::kEnter, u'\r'}},
    {"\t", {key::kTab, u'\t'}},
    {"\x7F", {key::kBackspace, u'\b'}},
    {"\b", {key::kBackspace, u'\b'}},
    {"\x01", {u'A', 1, false, true}},
    {"7", {u'7', u'7'}},
    {"a", {u'A', u'a'}},
    {"A", {u'A', u'A', true}},
    {".", {0, u'.'}},
    {"ü", {0, u'ü'}},
};

class KeyDecoderTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(nullptr, std::setlocale(LC_CTYPE, "C.UTF-8")); }
  void TearDown() override { std::setlocale(LC_CTYPE, "C"); }
};

TEST_F(KeyDecoderTest, BytesOfAKeyMakeOneKeyOfTheKeypad) {
  for (const auto& c : kKeys) {
    KeyDecoder decoder;
    decoder.Add(c.bytes + "1");
    ExpectKey(c.key, decoder.Next(), c.bytes);
    ExpectKey({u'1', u'1'}, decoder.Next(), c.bytes);
    EXPECT_FALSE(decoder.Next());
    EXPECT_EQ(KeyDecoder::Rest::kNothing, decoder.Left());
  }
}

TEST_F(KeyDecoderTest, AKeyMayArriveByteByByte) {
  for (const auto& c : kKeys) {
    KeyDecoder decoder;
    for (std::size_t i = 0; i + 1 < c.bytes.size(); ++i) {
      decoder.Add(c.bytes.substr(i, 1));
      EXPECT_FALSE(decoder.Next()) << ::testing::PrintToString(c.bytes);
      EXPECT_EQ(i == 0 && c.bytes.front() == '\x1B' ? KeyDecoder::Rest::kEscape : KeyDecoder::Rest::kBegun,
                decoder.Left());
    }
    decoder.Add(c.bytes.substr(c.bytes.size() - 1));
    ExpectKey(c.key, decoder.Next(), c.bytes);
    EXPECT_FALSE(decoder.Next());
  }
}

TEST_F(KeyDecoderTest, EscIsAKeyWhenNothingFollowsOrAnotherKeyDoes) {
  KeyDecoder decoder;
  decoder.Add("\x1B");
  EXPECT_FALSE(decoder.Next());
  decoder.Close();
  ExpectKey({key::kEscape, u'\x1B'}, decoder.Next(), "Esc");
  decoder.Add("\x1B\x1B[Bx");
  ExpectKey({key::kEscape, u'\x1B'}, decoder.Next(), "Esc before an arrow");
  ExpectKey({key::kDown}, decoder.Next(), "the arrow");
  ExpectKey({u'X', u'x'}, decoder.Next(), "x");
  decoder.Add("\x1Bx");
  ExpectKey({key::kEscape, u'\x1B'}, decoder.Next(), "Esc before x");
  ExpectKey({u'X', u'x'}, decoder.Next(), "x");
}

TEST_F(KeyDecoderTest, WhatIsCutOffIsTakenAsKeysOrPassedOver) {
  KeyDecoder decoder;
  decoder.Add("\x1B[");
  EXPECT_FALSE(decoder.Next());
  decoder.Close();
  ExpectKey({key::kEscape, u'\x1B'}, decoder.Next(), "Esc [");
  ExpectKey({0, u'['}, decoder.Next(), "[");
  for (const char* cut : {"\x1B[1;", "\xC3"}) {
    decoder.Add(cut);
    EXPECT_FALSE(decoder.Next());
    decoder.Close();
    EXPECT_FALSE(decoder.Next());
    EXPECT_EQ(KeyDecoder::Rest::kNothing, decoder.Left());
    // It was closed for these bytes alone.
    decoder.Add("\x1B");
    EXPECT_FALSE(decoder.Next());
    decoder.Add("[A");
    ExpectKey({key::kUp}, decoder.Next(), "Up after what was cut off");
  }
}

TEST_F(KeyDecoderTest, KeysThatTheKeypadLacksDoNothing) {
  const std::string none[] = {std::string(1, '\0'), "\x1C",   "😀",         "\xFF",       "\x1B[15~",
                              "\x1B[24;5~",         "\x1BOj", "\x1B[200~", "\x1B[?1;2c", "\x1B[I",
                              "\x1B[<0;10;10M"};
  for (const std::string& bytes : none) {
    KeyDecoder decoder;
    decoder.Add(bytes);
    EXPECT_FALSE(decoder.Next()) << ::testing::PrintToString(bytes);
    EXPECT_EQ(KeyDecoder::Rest::kNothing, decoder.Left()) << ::testing::PrintToString(bytes);
  }
  KeyDecoder decoder;
  decoder.Add("\x1B[" + std::string(100, ';'));
  EXPECT_FALSE(decoder.Next());
  EXPECT_EQ(KeyDecoder::Rest::kNothing, decoder.Left());
}

TEST_F(KeyDecoderTest, SequencesOfTheTerminalsDescriptionCountToo) {
  KeyDecoder decoder(simulator::DescribedKeySequences([](const char* name) -> std::string {
    const std::string capability = name;
    if (capability == "kcuu1")
      return "\x1B"
             "A";
    if (capability == "khome") return "\x1B[A";
    // Keys of their own, whatever the terminal sends them for.
    return capability == "kcud1" ? "\n" : capability == "kcub1" ? "\x1B" : "";
  }));
  decoder.Add(
      "\x1B"
      "A\x1B[A\n");
  ExpectKey({key::kUp}, decoder.Next(), "Esc A");
  ExpectKey({key::kHome}, decoder.Next(), "Esc [ A");
  ExpectKey({key::kEnter, u'\r'}, decoder.Next(), "line feed");
}

TEST(KeyDecoder, BytesBeyondAsciiTypeNothingInALocaleWithoutThem) {
  std::setlocale(LC_CTYPE, "C");
  KeyDecoder decoder;
  decoder.Add(
      "\xC3\xBC"
      "1");
  ExpectKey({u'1', u'1'}, decoder.Next(), "1");
  EXPECT_FALSE(decoder.Next());
}

}  // namespace
