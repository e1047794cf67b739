#include "values/range.h"

#include "base/number.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace values {
namespace {

TEST(Range, PartsAreTriedInOrder) {
  const struct {
    const char16_t* range;
    std::int32_t value;
    bool in;
  } cases[] = {
      {u"5", 5, true},         {u"5", 6, false},      {u"1,99", 1, true},
      {u"1,99", 50, true},     {u"1,99", 99, true},   {u"1,99", 100, false},
      {u"1,99,", 50, true},    {u"99,1", 50, false},  {u"1,50,99", 50, true},
      {u"1,50,99", 51, false}, {u"0-5,10", 10, true}, {u"0-5,10", 7, false},
      {u"0-5,10", 5, true},    {u"-10-5", -10, true}, {u"-10-5", 5, true},
      {u"-10-5", -11, false},  {u"-10--5", -7, true},  // the bound after the last dash is 5, not -5
      {u"-10--5", 3, true},    {u"-5", -5, false},    {u"-5", 3, true},
      {u"1,,3", 0, true},      {u"1,,3", 2, false},   {u",", 0, true},
      {u"a", 0, true},         {u"", -77, true},      {u"0-99999999999", 2147483647, true},
  };
  for (const auto& c : cases) EXPECT_EQ(InRange(c.value, c.range), c.in) << base::ToUtf8(c.range) << " " << c.value;
}

TEST(Range, TheMaskIsAsLongAsTheLongestUpperBound) {
  EXPECT_EQ(MaskFromRange(u"0-65535"), u"#####");
  EXPECT_EQ(MaskFromRange(u"1,50,999"), u"###");
  EXPECT_EQ(MaskFromRange(u"100-5,7"), u"#");
  EXPECT_EQ(MaskFromRange(u""), u"");
  EXPECT_EQ(MaskFromRange(u"1-"), u"");
}

// The same test over parts cut one character at a time.
bool PlainInRange(std::int32_t value, WideStringView range) {
  struct Part {
    WideString whole;
    WideString low;   // before the last dash
    WideString high;  // after it
    bool dash = false;
  };
  if (range.empty()) return true;
  std::vector<Part> parts;
  Part part;
  const auto read = [&part](char16_t unit) {
    if (unit == u'-') {
      part.low = part.whole;
      part.high.clear();
      part.dash = true;
    } else {
      part.high.push_back(unit);
    }
    part.whole.push_back(unit);
  };
  for (const char16_t unit : range) {
    if (unit == u',') {
      parts.push_back(std::exchange(part, {}));
    } else {
      read(unit);
    }
  }
  if (!part.whole.empty()) parts.push_back(part);

  if (parts.size() == 2 && !parts[0].dash && !parts[1].dash) {
    return value >= base::ToLong(parts[0].whole) && value <= base::ToLong(parts[1].whole);
  }
  bool in = false;
  for (const Part& p : parts) {
    in = in || (value >= base::ToLong(p.dash ? p.low : p.whole) && value <= base::ToLong(p.high));
  }
  return in;
}

TEST(Range, AgreesWithAPlainReadingOfRandomTexts) {
  constexpr WideStringView kUnits = u",,--0123456789 x";
  std::mt19937 random(21);
  for (int i = 0; i < 100000; ++i) {
    WideString range(random() % 14, u' ');
    for (char16_t& unit : range) unit = kUnits[random() % kUnits.size()];
    const auto value = static_cast<std::int32_t>(random() % 120) - 20;
    ASSERT_EQ(InRange(value, range), PlainInRange(value, range)) << base::ToUtf8(range) << " " << value;
  }
}

}  // namespace
}  // namespace values
