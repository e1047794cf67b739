#include "values/field_width_list.h"

#include "tests/printing.h"

#include <gtest/gtest.h>

namespace values {
namespace {

TEST(FieldWidthList, TheFirstNumberIsTheCountAndTheOthersAreWidths) {
  const FieldWidthList list(u"3,2,4,6");
  EXPECT_EQ(list.Text(), u"3,2,4,6");
  EXPECT_EQ(list.StatedCount(), 3);
  EXPECT_EQ(list.Count(), 3);
  EXPECT_EQ(list.Width(0), 2);
  EXPECT_EQ(list.Width(1), 4);
  EXPECT_EQ(list.Width(2), 6);
  EXPECT_EQ(list.Start(2), 6);
  EXPECT_EQ(list.Mask(), u"############");
}

TEST(FieldWidthList, OutsideTheListThereIsNoWidthAndTheStartStops) {
  const FieldWidthList list(u"3,2,4,6");
  EXPECT_EQ(list.Width(3), -1);
  EXPECT_EQ(list.Width(-1), -1);
  EXPECT_EQ(list.Start(-1), 0);
  EXPECT_EQ(list.Start(0), 0);
  EXPECT_EQ(list.Start(99), 12);
}

TEST(FieldWidthList, ACountAloneHasNoFields) {
  const FieldWidthList list(u"3");
  EXPECT_EQ(list.StatedCount(), 3);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.Mask(), u"");
  EXPECT_EQ(FieldWidthList(u"").StatedCount(), 0);
}

TEST(FieldWidthList, WhatIsNoNumberIsAWidthOfZero) {
  const FieldWidthList list(u"x,2,,y,4,");
  EXPECT_EQ(list.StatedCount(), 0);
  ASSERT_EQ(list.Count(), 4);
  EXPECT_EQ(list.Width(1), 0);
  EXPECT_EQ(list.Width(2), 0);
  EXPECT_EQ(list.Start(3), 2);
}

TEST(FieldWidthList, AFieldIsCutFromTheRecordAndEndsWithIt) {
  const FieldWidthList list(u"3,2,4,6");
  EXPECT_EQ(list.Field(u"aabbbbcccccc", 0), u"aa");
  EXPECT_EQ(list.Field(u"aabbbbcccccc", 1), u"bbbb");
  EXPECT_EQ(list.Field(u"aabbbbccc", 2), u"ccc");
  EXPECT_EQ(list.Field(u"aabbbb", 2), std::nullopt);
  EXPECT_EQ(list.Field(u"aabbbb", 3), std::nullopt);
  EXPECT_EQ(list.Field(u"aabbbb", -1), std::nullopt);
  EXPECT_EQ(FieldWidthList(u"1,0").Field(u"aa", 0), std::nullopt);
}

TEST(FieldWidthList, AFieldEndsAtAZeroAndHasAtMost260Characters) {
  EXPECT_EQ(FieldWidthList(u"1,4").Field(WideString(u"ab\0cd", 5), 0), u"ab");
  EXPECT_EQ(FieldWidthList(u"1,1000").Field(WideString(500, u'a'), 0)->size(), 260u);
}

TEST(FieldWidthList, HugeAndNegativeWidthsStayHarmless) {
  const FieldWidthList huge(u"3,2147483647,2147483647,5");
  EXPECT_EQ(huge.Start(3), 2147483647);
  EXPECT_EQ(huge.Mask().size(), 4096u);
  EXPECT_EQ(huge.Field(u"abc", 2), std::nullopt);
  const FieldWidthList negative(u"2,-5,3");
  EXPECT_EQ(negative.Start(1), -5);
  EXPECT_EQ(negative.Field(u"abc", 1), std::nullopt);
  EXPECT_EQ(negative.Mask(), u"");
}

}  // namespace
}  // namespace values
