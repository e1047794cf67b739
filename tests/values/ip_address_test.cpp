#include "values/ip_address.h"

#include "tests/printing.h"

#include <gtest/gtest.h>

#include <random>

namespace values {
namespace {

TEST(IpAddress, TheFirstFieldIsTheMostSignificantByte) {
  EXPECT_EQ(IpAddressFromDotted(u"1.2.3.4"), 0x01020304);
  EXPECT_EQ(IpAddressFromDotted(u"192.168.0.1"), static_cast<std::int32_t>(0xC0A80001));
  EXPECT_EQ(DottedIpAddress(0x01020304), u"1.2.3.4");
}

TEST(IpAddress, TheEndsOfTheRangeHaveTheirTexts) {
  EXPECT_EQ(DottedIpAddress(0), u"0.0.0.0");
  EXPECT_EQ(DottedIpAddress(-1), u"255.255.255.255");
  EXPECT_EQ(IpAddressFromDotted(u"0.0.0.0"), 0);
}

TEST(IpAddress, FieldsAreDecimalAlsoWithLeadingZeros) {
  EXPECT_EQ(IpAddressFromDotted(u"010.001.000.099"), 0x0A010063);
}

TEST(IpAddress, AMalformedTextIsNoAddress) {
  for (const WideStringView text : {u"", u"?", u"1", u"1.2.3", u"1.2.3.4.5", u"1.2.3.256", u"1..3.4", u"1.2.3.",
                                    u".1.2.3", u" 1.2.3.4", u"1.2.3.4 ", u"-1.2.3.4", u"1.2.3.0004", u"a.b.c.d"}) {
    EXPECT_EQ(IpAddressFromDotted(text), kNoIpAddress) << base::ToUtf8(text);
  }
}

TEST(IpAddress, EveryNumberComesBackFromItsText) {
  std::mt19937 random(22);
  for (int i = 0; i < 10000; ++i) {
    const auto address = static_cast<std::int32_t>(random());
    ASSERT_EQ(IpAddressFromDotted(DottedIpAddress(address)), address);
  }
}

}  // namespace
}  // namespace values
