#include "values/shown_value.h"

#include "tests/values/property_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace values {
namespace {

class ShownValueTest : public tests::PropertyTest {
 protected:
  WideString Shown(WideStringView type, WideStringView text, tests::KeyValues more = {}) {
    return ShownValue(MakeWithValue(type, text, std::move(more)));
  }
};

TEST_F(ShownValueTest, PlainValuesReadAsTheirText) {
  EXPECT_EQ(Shown(u"Integer", u"007"), u"7");
  EXPECT_EQ(Shown(u"Integer", u"-7"), u"-7");
  EXPECT_EQ(Shown(u"Octet String", u"abc"), u"abc");
  EXPECT_EQ(Shown(u"Time Ticks", u"12345"), u"12345");
  EXPECT_EQ(Shown(u"Integer", u""), u"");
}

TEST_F(ShownValueTest, AnAddressReadsDotted) {
  EXPECT_EQ(Shown(u"IP Address", u"192.168.0.1"), u"192.168.0.1");
  EXPECT_EQ(Shown(u"IP Address", u""), u"");
}

TEST_F(ShownValueTest, AFlagReadsTrueOrFalseUnlessItHasChoices) {
  EXPECT_EQ(Shown(u"Bool", u"1"), u"TRUE");
  EXPECT_EQ(Shown(u"Bool", u"0"), u"FALSE");
  EXPECT_EQ(Shown(u"Bool", u"5"), u"TRUE");
  EXPECT_EQ(Shown(u"Bool", u"maybe"), u"maybe");
  EXPECT_EQ(Shown(u"Bool", u"1", {{u"ChoiceFmt", u"0#Off|1#On"}}), u"On");
  EXPECT_EQ(Shown(u"Bool", u"5", {{u"ChoiceFmt", u"0#Off|1#On"}}), u"5");
}

TEST_F(ShownValueTest, AChoiceReadsAsItsText) {
  const tests::KeyValues choices = {{u"ChoiceFmt", u"1#Open|2#Shared|01#Other"}};
  EXPECT_EQ(Shown(u"Integer", u"2", choices), u"Shared");
  EXPECT_EQ(Shown(u"Integer", u"1", choices), u"Other");      // by number the last key counts
  EXPECT_EQ(Shown(u"Octet String", u"1", choices), u"Open");  // by text the first
  EXPECT_EQ(Shown(u"Octet String", u"01", choices), u"Other");
}

TEST_F(ShownValueTest, AValueThatIsNoChoiceReadsAsItself) {
  const tests::KeyValues choices = {{u"ChoiceFmt", u"1#Open|2#Shared"}};
  EXPECT_EQ(Shown(u"Integer", u"3", choices), u"3");
  EXPECT_EQ(Shown(u"Octet String", u"x", choices), u"x");
}

TEST_F(ShownValueTest, AnEmptyNumberIsNotTheChoiceZero) {
  EXPECT_EQ(Shown(u"Integer", u"", {{u"ChoiceFmt", u"0#Off|1#On"}}), u"");
}

TEST_F(ShownValueTest, ATextThatHoldsNoNumberIsNoChoiceOfAnInteger) {
  const tests::KeyValues choices = {{u"ChoiceFmt", u"0#Off|1#On"}};
  for (const WideStringView text : {u"abc", u"-", u" ", u"+x1"}) EXPECT_EQ(Shown(u"Integer", text, choices), text);
  EXPECT_EQ(Shown(u"Integer", u" -0", choices), u"Off");
  EXPECT_EQ(Shown(u"Integer", u"+1x", choices), u"On");
}

TEST_F(ShownValueTest, ANegativeNumberFindsItsChoice) {
  EXPECT_EQ(Shown(u"Integer", u"-1", {{u"ChoiceFmt", u"-1#Auto|0#Off"}}), u"Auto");
}

TEST_F(ShownValueTest, ASymbolMayHoldTheChoices) {
  SetSymbols({{u"ONOFF", u"0#Off|1#On"}});
  EXPECT_EQ(Shown(u"Integer", u"1", {{u"ChoiceFmt", u"ONOFF"}}), u"On");
}

TEST_F(ShownValueTest, APasswordShowsAStarForEachCharacter) {
  EXPECT_EQ(Shown(u"Password", u"abcde", {{u"PassWordChar", u"*"}}), u"*****");
  EXPECT_EQ(Shown(u"Password", u"abc", {{u"PassWordChar", u"x"}}), u"***");
  EXPECT_EQ(Shown(u"Password", u"", {{u"PassWordChar", u"*"}}), u"");
}

TEST_F(ShownValueTest, AMaskHas1023StarsAtMost) {
  const PropertyDescriptor& password = MakeWithValue(u"Password", u"", {{u"PassWordChar", u"*"}});
  for (const std::size_t length : {1022u, 1023u, 1024u, 5000u}) {
    const WideString mask(std::min<std::size_t>(length, 1023), u'*');
    EXPECT_EQ(MaskedText(password, WideString(length, u'a')), mask) << length;
    EXPECT_EQ(Shown(u"Octet String", WideString(length, u'a'), {{u"PassWordChar", u"*"}}), mask) << length;
  }
}

TEST_F(ShownValueTest, APasswordIsASecretWithoutItsMaskToo) { EXPECT_EQ(Shown(u"Password", u"abcde", {}), u"*****"); }

TEST_F(ShownValueTest, AKeyIsASecretWithoutItsFixedTextToo) {
  EXPECT_EQ(Shown(u"Hex", u"abcde", {}), u"*****");
  EXPECT_EQ(Shown(u"hex", u"abcde", {}), u"*****");
  EXPECT_EQ(Shown(u"Hex32", u"passphrase", {}), u"**********");
}

TEST_F(ShownValueTest, ASecretIsOneWhileItCannotBeReadToo) {
  EXPECT_EQ(MaskedText(Make({{u"OID", u"9"}, {u"Type", u"Password"}}), u"abc"), u"***");
}

TEST_F(ShownValueTest, AWirelessKeyShowsItsFixedTextWhateverTheValue) {
  EXPECT_EQ(Shown(u"Hex", u"abcde", {{u"WEP", u"Set"}}), u"Set");
  EXPECT_EQ(Shown(u"Hex", u"", {{u"WEP", u"Set"}}), u"Set");
}

TEST_F(ShownValueTest, StarsStandBeforeTheFixedText) {
  EXPECT_EQ(Shown(u"Hex", u"abcde", {{u"WEP", u"Set"}, {u"PassWordChar", u"*"}}), u"*****");
}

TEST_F(ShownValueTest, AValueThatCannotBeReadIsUnavailable) {
  EXPECT_EQ(ShownValue(Make({{u"OID", u"9"}, {u"Type", u"Integer"}})), u"Unavailable");
  EXPECT_EQ(ShownValue(Make({{u"OID", u"9"}, {u"Type", u"Integer"}, {u"Unavailable", u"No radio"}})), u"No radio");
}

TEST_F(ShownValueTest, WithoutATypeThereIsNothingToShow) {
  EXPECT_EQ(Shown(u"", u"5"), u"");
  EXPECT_EQ(Shown(u"None", u"5"), u"");
  EXPECT_EQ(Shown(u"NONE", u"5"), u"");
}

}  // namespace
}  // namespace values
