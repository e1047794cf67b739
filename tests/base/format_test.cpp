#include "base/format.h"

#include "tests/printing.h"

#include <cstdio>
#include <random>

namespace {

using base::Format;

TEST(Format, FillsTheProgramsOwnFormats) {
  EXPECT_EQ(u"Name, <value>", Format(u"%s, <%s>", u"Name", WideString(u"value")));
  EXPECT_EQ(u"  <6>", Format(u"  <%s>", WideStringView(u"6")));
  EXPECT_EQ(u"1  Network", Format(u"%d  %s", 1, u"Network"));
  EXPECT_EQ(u"2  Wireless", Format(u"%c  %s", u'2', u"Wireless"));
  EXPECT_EQ(u"CLSIDFromProgID returned 0x800401F3.\r\n",
            Format(u"CLSIDFromProgID returned 0x%08X.\r\n", static_cast<int>(0x800401F3)));
  EXPECT_EQ(u"hr[80004005]", Format(u"hr[%x]", static_cast<int>(0x80004005)));
  EXPECT_EQ(u"20261121", Format(u"%.4d%.2d%.2d", 2026, 11, 21));
  EXPECT_EQ(u"6b", Format(u"%2x", u'k'));
  EXPECT_EQ(u" 7", Format(u"%2x", char16_t{7}));
  EXPECT_EQ(u"100%", Format(u"%d%%", 100));
}

TEST(Format, AMissingArgumentPrintsNothingAndOneTooManyIsIgnored) {
  EXPECT_EQ(u"Value  is out of range {}", Format(u"Value %d is out of range {%s}"));
  EXPECT_EQ(u"a b", Format(u"a %s", u"b", u"c"));
}

TEST(Format, AnArgumentOfTheOtherKindIsShownAsWhatItIs) {
  EXPECT_EQ(u"5", Format(u"%s", 5));
  EXPECT_EQ(u"five", Format(u"%d", u"five"));
}

TEST(Format, ABrokenConversionIsCopiedAsItStands) {
  EXPECT_EQ(u"50%", Format(u"50%"));
  EXPECT_EQ(u"%q 1", Format(u"%q %d", 1));
  EXPECT_EQ(u"%5", Format(u"%5"));
}

TEST(Format, AHugeWidthIsHeldWithinBounds) {
  EXPECT_EQ(4096u, Format(u"%999999999999999999999d", 1).size());
  EXPECT_EQ(4096u, Format(u"%.99999999999999999999d", 1).size());
}

TEST(Format, NumbersReadAsTheCLibraryWritesThem) {
  std::mt19937 random(3);
  const char* conversions[] = {"d", "i", "u", "x", "X"};
  const char* flagSets[] = {"", "-", "0", "+", " ", "#", "-0", "+0", " 0", "#0", "-#", "-+"};
  for (int round = 0; round < 50'000; ++round) {
    const std::string conversion = conversions[random() % 5];
    std::string format = std::string("%") + flagSets[random() % 12];
    const bool isSigned = conversion == "d" || conversion == "i";
    // Flags that the C standard leaves undefined for the conversion are not compared.
    if (format.find('#') != std::string::npos && conversion != "x" && conversion != "X") continue;
    if (format.find_first_of("+ ") != std::string::npos && !isSigned) continue;
    if (random() % 2) format += std::to_string(random() % 12);
    if (random() % 3 == 0) format += "." + std::to_string(random() % 12);
    format += conversion;
    const auto number = static_cast<std::int32_t>(random() % 3 == 0 ? random() % 3 : random());
    char expected[64];
    std::snprintf(expected, sizeof expected, format.c_str(), number);
    ASSERT_EQ(base::FromUtf8(expected), Format(base::FromUtf8(format), number)) << format << " of " << number;
  }
}

}  // namespace
