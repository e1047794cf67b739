// The tables of text widths, which a test on Windows compares with what that measures: here they are held by a sum of
// each font, in which every width counts at its own place.
#include "platform/host/text_metrics.h"

#include "base/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::host {
namespace {

// The sum of all widths, and of all times their places: no one width can change without it.
std::string SumsOf(const Font& font) {
  int sum = 0;
  int weighted = 0;
  int place = 0;
  for (char16_t unit = 0x20; unit <= 0x100; ++unit) {
    const int width = WidthOf(font, WideStringView(&unit, 1));
    sum += width;
    weighted += ++place * width;
  }
  const FontMetrics& metrics = *font.metrics;
  return std::to_string(sum) + " " + std::to_string(weighted) + ", " + std::to_string(metrics.heightPx) + " high, " +
         std::to_string(metrics.averageWidthPx) + " on average, " + std::to_string(metrics.dialogUnitX) +
         " a unit, margin " + std::to_string(metrics.editMarginPx);
}

TEST(TextMetrics, OfEachFontAreThoseThatWereMeasured) {
  EXPECT_EQ("1681 192618, 16 high, 7 on average, 8 a unit, margin 0", SumsOf(SystemFont()));
  EXPECT_EQ("1438 164944, 13 high, 7 on average, 6 a unit, margin 3", SumsOf(FontForPoints(u"Tahoma", 8)));
  EXPECT_EQ("1688 194142, 16 high, 8 on average, 7 a unit, margin 3", SumsOf(FontForPoints(u"Tahoma", 10)));
  EXPECT_EQ("1275 146392, 13 high, 5 on average, 6 a unit, margin 0", SumsOf(FontFor(u"System", 13, 400)));
  EXPECT_EQ("1500 171817, 13 high, 6 on average, 7 a unit, margin 0", SumsOf(FontFor(u"System", 15, 600)));
  EXPECT_EQ("2136 244968, 20 high, 9 on average, 10 a unit, margin 0", SumsOf(FontFor(u"System", 20, 600)));
  EXPECT_EQ("1800 203400, 13 high, 8 on average, 8 a unit, margin 0", SumsOf(FontFor(u"Courier", 13, 400)));
}

}  // namespace
}  // namespace platform::host
