#include "values/key_rules.h"

#include "tests/printing.h"

#include <gtest/gtest.h>

namespace values {
namespace {

constexpr const char16_t* kWepLength = u"WEP Key must be 5 or 13 characters.";
constexpr const char16_t* kHexWepLength = u"Hexadecimal WEP Key must be 10 or 26 characters.";
constexpr const char16_t* kBadDigit = u"Invalid character in hex string";
constexpr const char16_t* kPskLength = u"Pre-shared key must be 64 characters";
constexpr const char16_t* kPhraseLength = u"Pass phrase must be from 8 to 63 characters.";

struct Case {
  WideString typed;
  bool convert;
  WideString sent;     // the text afterwards
  WideString message;  // empty: it passes
};

using Rule = bool (*)(WideString& text, bool convert, WideString& message);

void Check(Rule rule, const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    WideString text = c.typed;
    WideString message;
    EXPECT_EQ(rule(text, c.convert, message), c.message.empty()) << base::ToUtf8(c.typed);
    EXPECT_EQ(text, c.sent);
    EXPECT_EQ(message, c.message) << base::ToUtf8(c.typed);
  }
}

TEST(KeyRules, AZeroOrABackslashAndAnXIntroduceHexDigits) {
  for (const WideStringView text : {u"0x", u"0X", u"\\x", u"\\X12"}) EXPECT_TRUE(IsHexPrefixed(text));
  for (const WideStringView text : {u"", u"0", u"x0", u"1x", u"/x"}) EXPECT_FALSE(IsHexPrefixed(text));
}

TEST(KeyRules, TextBecomesTwoHexDigitsACharacter) {
  EXPECT_EQ(ToHexText(u"abcZ~"), u"6162635a7e");
  EXPECT_EQ(ToHexText(u"\t"), u" 9");
  EXPECT_EQ(ToHexText(u"\u00E9\u20AC"), u"e920ac");
  EXPECT_EQ(ToHexText(u""), u"");
}

TEST(KeyRules, AShortWepKeyIsRefusedByItsForm) {
  Check(CheckWepKey, {
                         {u"0x12", true, u"0x12", kHexWepLength},
                         {u"\\X", true, u"\\X", kHexWepLength},
                         {u"abcd", true, u"abcd", kWepLength},
                         {u"", true, u"", kWepLength},
                         {u"0y12", true, u"0y12", kWepLength},
                     });
}

TEST(KeyRules, AHexWepKeyIsSentAsBareUpperCaseDigits) {
  Check(CheckWepKey, {
                         {u"0x12aBcDeF90", true, u"12ABCDEF90", u""},
                         {u"\\X12aBcDeF90", true, u"12ABCDEF90", u""},
                         {u"0x12345678901234567890abcdef", true, u"12345678901234567890ABCDEF", u""},
                         {u"0x12aBcDeF90", false, u"0x12aBcDeF90", u""},
                         {u"0x12aBcDeF9", true, u"0x12aBcDeF9", kHexWepLength},
                         {u"0x12aBcDeF901", false, u"0x12aBcDeF901", kHexWepLength},
                         {u"0x12aBcDeFg0", true, u"0x12aBcDeFg0", kBadDigit},
                         {u"0x12aBcDeFg0", false, u"0x12aBcDeFg0", u""},
                     });
}

TEST(KeyRules, APlainWepKeyIsSentAsLowerCaseHexDigits) {
  Check(CheckWepKey, {
                         {u"abcde", true, u"6162636465", u""},
                         {u"ABCDEFGHIJKLM", true, u"4142434445464748494a4b4c4d", u""},
                         {u"abcde", false, u"abcde", u""},
                         {u"abcdef", true, u"abcdef", kWepLength},
                         {u"1234567890123456", true, u"1234567890123456", kWepLength},
                     });
}

TEST(KeyRules, AHexPreSharedKeyCarriesItsPrefixInHexForm) {
  const WideString digits(62, u'a');
  const WideString upper(62, u'A');
  Check(CheckPreSharedKey, {
                               {u"0x" + digits + u"0f", true, u"3078" + upper + u"0F", u""},
                               {u"\\X" + digits + u"0f", true, u"3078" + upper + u"0F", u""},
                               {u"0x" + digits + u"0f", false, u"0x" + digits + u"0f", u""},
                               {u"0x" + digits, true, u"0x" + digits, kPskLength},
                               {u"0x" + digits + u"0f0", false, u"0x" + digits + u"0f0", kPskLength},
                               {u"0x", true, u"0x", kPskLength},
                           });
}

TEST(KeyRules, TheCheckOfAHexPreSharedKeyStopsTwoDigitsShort) {
  const WideString digits(62, u'1');
  Check(CheckPreSharedKey, {
                               {u"0x" + digits + u"1z", true, u"3078" + digits + u"1Z", u""},
                               {u"0x" + digits + u"zz", true, u"3078" + digits + u"ZZ", u""},
                               {u"0x" + digits.substr(1) + u"z11", true, u"0x" + digits.substr(1) + u"z11", kBadDigit},
                               {u"0xz" + digits + u"1", true, u"0xz" + digits + u"1", kBadDigit},
                           });
}

TEST(KeyRules, APassPhraseHasEightToSixtyThreeCharacters) {
  WideString hex;
  for (int i = 0; i < 63; ++i) hex += u"70";
  Check(CheckPreSharedKey, {
                               {u"pppppppp", true, u"7070707070707070", u""},
                               {u"pppppppp", false, u"pppppppp", u""},
                               {WideString(63, u'p'), true, hex, u""},
                               {u"ppppppp", true, u"ppppppp", kPhraseLength},
                               {WideString(64, u'p'), true, WideString(64, u'p'), kPhraseLength},
                               {u"", false, u"", kPhraseLength},
                           });
}

}  // namespace
}  // namespace values
