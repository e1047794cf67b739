#include "tests/platform/host_fixture.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using host::PickerStateOf;

class DateTimePickerTest : public HostTest {
 protected:
  DateTimePicker MakePicker(WideStringView format, const SystemTime& time) {
    const DateTimePicker picker(MakeControl(u"SysDateTimePick32", 0));
    picker.SetFormat(format);
    picker.SetTime(time);
    notifications.clear();
    return picker;
  }
  static constexpr const char16_t* kDate = u"MMM dd',' yyy";
  static constexpr const char16_t* kTime = u"hh':'mm':'ss' 'tt";
};

TEST_F(DateTimePickerTest, FormatsShowTheirParts) {
  const SystemTime time{2026, 2, 6, 8, 0, 5, 9, 0};
  const struct {
    const char16_t* format;
    const char16_t* shown;
  } cases[] = {
      {kDate, u"Feb 08, 2026"},
      {kTime, u"12:05:09 AM"},
      {u"d/M/yy", u"8/2/26"},
      {u"H:mm", u"0:05"},
      {u"dddd d MMMM", u"Sunday 8 February"},
      {u"ddd", u"Sun"},
      {u"h 'o''clock'", u"12 o'clock"},
  };
  for (const auto& c : cases) {
    const DateTimePicker picker = MakePicker(c.format, time);
    EXPECT_EQ(c.shown, PickerStateOf(picker.Handle())->shown);
    EXPECT_EQ(c.shown, TextOf(picker.Handle()));
  }
}

TEST_F(DateTimePickerTest, StartsWithTheTimeOfTheDay) {
  const DateTimePicker picker(MakeControl(u"SysDateTimePick32", 0));
  EXPECT_EQ((SystemTime{2026, 2, 6, 28, 13, 5, 9, 0}), picker.Time());
}

TEST_F(DateTimePickerTest, WhatIsNoDateChangesNothing) {
  const SystemTime before{2024, 2, 4, 29, 1, 2, 3, 0};
  const DateTimePicker picker = MakePicker(kDate, before);
  for (const SystemTime& wrong : {SystemTime{2023, 2, 0, 29, 0, 0, 0, 0}, SystemTime{2024, 13, 0, 1, 0, 0, 0, 0},
                                  SystemTime{2024, 1, 0, 0, 0, 0, 0, 0}, SystemTime{2024, 1, 0, 1, 24, 0, 0, 0},
                                  SystemTime{2024, 1, 0, 32, 0, 0, 0, 0}, SystemTime{2024, 0, 0, 1, 0, 0, 0, 0},
                                  SystemTime{1900, 2, 0, 29, 0, 0, 0, 0}, SystemTime{1600, 1, 0, 1, 0, 0, 0, 0},
                                  SystemTime{10000, 1, 0, 1, 0, 0, 0, 0}, SystemTime{2024, 1, 0, 1, 0, 60, 0, 0},
                                  SystemTime{2024, 1, 0, 1, 0, 0, 60, 0}, SystemTime{2024, 1, 0, 1, 0, 0, 0, 1000}}) {
    EXPECT_FALSE(picker.SetTime(wrong));
    EXPECT_EQ(before, picker.Time());
  }
}

// Keys are written as R, L, U, D (arrows), H (Home), E (End); all else is typed.
struct KeyCase {
  const char16_t* format;
  SystemTime start;
  const char* keys;
  const char16_t* shown;
  int reports;
};

class DateTimePickerKeys : public DateTimePickerTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(DateTimePickerKeys, ChangeTheSelectedField) {
  const std::map<char, std::uint16_t> arrows{{'R', key::kRight}, {'L', key::kLeft}, {'U', key::kUp},
                                             {'D', key::kDown},  {'H', key::kHome}, {'E', key::kEnd}};
  const KeyCase& c = GetParam();
  const DateTimePicker picker = MakePicker(c.format, c.start);
  for (const char each : std::string_view(c.keys)) {
    const auto arrow = arrows.find(each);
    if (arrow != arrows.end()) {
      Press(picker.Handle(), arrow->second);
    } else {
      Send(picker.Handle(), message::kChar, static_cast<WParam>(each), 1);
    }
  }
  EXPECT_EQ(c.shown, TextOf(picker.Handle())) << c.keys;
  EXPECT_EQ(std::vector<int>(static_cast<std::size_t>(c.reports), notification::kPickerDateTimeChange), notifications)
      << c.keys;
}

constexpr const char16_t* kDateFormat = u"MMM dd',' yyy";
constexpr const char16_t* kTimeFormat = u"hh':'mm':'ss' 'tt";
constexpr SystemTime kJanuary{2024, 1, 0, 31, 13, 30, 9, 0};
constexpr SystemTime kBeforeNoon{2024, 1, 0, 31, 11, 0, 0, 0};
constexpr SystemTime kLeapDay{2024, 2, 0, 29, 0, 0, 0, 0};

// As the desktop's control behaves, oddities included.
INSTANTIATE_TEST_SUITE_P(Observed, DateTimePickerKeys,
                         ::testing::Values(KeyCase{kTimeFormat, kJanuary, "U", u"01:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "07", u"01:30:09 PM", 0},
                                           KeyCase{kTimeFormat, kJanuary, "RU", u"02:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRU", u"01:31:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRRU", u"01:30:10 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRRRU", u"12:30:09 AM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRRRD", u"01:30:09 AM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRRRDE", u"11:30:09 PM", 2},
                                           KeyCase{kTimeFormat, kBeforeNoon, "RRRRU", u"11:00:00 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRRRRU", u"02:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RLU", u"01:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RLRU", u"02:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "LLRRRU", u"02:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "R12", u"12:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "R00", u"01:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "R15", u"03:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "R25", u"05:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "R9", u"09:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "R2R", u"02:30:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RR60", u"01:30:09 PM", 0},
                                           KeyCase{kTimeFormat, kJanuary, "RR59", u"01:59:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RR5U", u"01:31:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RR5L", u"01:05:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RR5", u"01:30:09 PM", 0},
                                           KeyCase{kTimeFormat, kJanuary, "RRH", u"01:59:09 PM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRRRa", u"01:30:09 AM", 1},
                                           KeyCase{kTimeFormat, kJanuary, "RRRRx", u"01:30:09 PM", 1},
                                           KeyCase{kDateFormat, kJanuary, "RU", u"Feb 01, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RH", u"Dec 31, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RD", u"Dec 31, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RRU", u"Jan 01, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RRRU", u"Jan 31, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RRR2021", u"Jan 31, 2021", 1},
                                           KeyCase{kDateFormat, kJanuary, "RRR1000", u"Jan 31, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RRR21R", u"Jan 31, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "R02", u"Jan 31, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RR15", u"Jan 15, 2024", 1},
                                           KeyCase{kDateFormat, kJanuary, "RR40", u"Jan 31, 2024", 0},
                                           KeyCase{kDateFormat, kJanuary, "RR1R", u"Jan 01, 2024", 1},
                                           KeyCase{kDateFormat, kLeapDay, "RRR2023", u"Feb 28, 2023", 1},
                                           KeyCase{kDateFormat, kLeapDay, "RU", u"Mar 29, 2024", 1}));

TEST_F(DateTimePickerTest, LosingTheFocusTakesTheDigitsOver) {
  const DateTimePicker picker = MakePicker(kDate, {2024, 1, 0, 31, 0, 0, 0, 0});
  Press(picker.Handle(), key::kRight);
  Press(picker.Handle(), key::kRight);
  Type(picker.Handle(), u"4");
  EXPECT_EQ(u"4", PickerStateOf(picker.Handle())->typed);
  Focus(frameWindow);
  EXPECT_EQ(4, picker.Time().day);
}

TEST_F(DateTimePickerTest, AYearThatCannotBeShownIsAcceptedAndChangesNothing) {
  const SystemTime before{2024, 2, 4, 29, 1, 2, 3, 0};
  const DateTimePicker picker = MakePicker(kDate, before);
  EXPECT_TRUE(picker.SetTime({1700, 1, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(before, picker.Time());
  EXPECT_TRUE(notifications.empty());
}

TEST_F(DateTimePickerTest, TheDayOfTheWeekFollowsTheDate) {
  const DateTimePicker picker = MakePicker(u"ddd", {2024, 1, 0, 1, 0, 0, 0, 0});
  const struct {
    SystemTime time;
    const char16_t* shown;
  } cases[] = {
      {{2024, 1, 0, 1, 0, 0, 0, 0}, u"Mon"},
      {{2000, 2, 0, 29, 0, 0, 0, 0}, u"Tue"},  // a leap year for all that it ends a century
      {{1999, 12, 0, 31, 0, 0, 0, 0}, u"Fri"},
      {{2023, 12, 5, 31, 0, 0, 0, 0}, u"Sun"},  // whatever was said with it
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(picker.SetTime(c.time));
    EXPECT_EQ(c.shown, TextOf(picker.Handle()));
  }
}

TEST_F(DateTimePickerTest, NamesTheMonthsAndTheDaysOfTheWeek) {
  const DateTimePicker picker = MakePicker(u"MMMM MMM dddd ddd", {2024, 1, 0, 1, 0, 0, 0, 0});
  const struct {
    std::uint16_t month, day;
    const char16_t* shown;
  } cases[] = {
      {1, 1, u"January Jan Monday Mon"},   {2, 6, u"February Feb Tuesday Tue"}, {3, 6, u"March Mar Wednesday Wed"},
      {4, 4, u"April Apr Thursday Thu"},   {5, 3, u"May May Friday Fri"},       {6, 1, u"June Jun Saturday Sat"},
      {7, 7, u"July Jul Sunday Sun"},      {8, 1, u"August Aug Thursday Thu"},  {9, 2, u"September Sep Monday Mon"},
      {10, 1, u"October Oct Tuesday Tue"}, {11, 1, u"November Nov Friday Fri"}, {12, 1, u"December Dec Sunday Sun"},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(picker.SetTime({2024, c.month, 0, c.day, 0, 0, 0, 0}));
    EXPECT_EQ(c.shown, TextOf(picker.Handle()));
  }
}

TEST_F(DateTimePickerTest, WithoutAFormatItShowsTheShortDate) {
  const DateTimePicker picker = MakePicker(u"d", {2024, 1, 0, 31, 0, 0, 0, 0});
  picker.SetFormat(u"");
  EXPECT_EQ(u"1/31/2024", TextOf(picker.Handle()));
  picker.SetFormat(u"'on' ");
  Press(picker.Handle(), key::kRight);
  Type(picker.Handle(), u"5");
  EXPECT_EQ(u"on ", TextOf(picker.Handle()));
}

TEST_F(DateTimePickerTest, AClickTakesTheFocusAndItsTextCannotBeSet) {
  const DateTimePicker picker = MakePicker(u"d", {2024, 1, 0, 31, 0, 0, 0, 0});
  Focus(frameWindow);
  Send(picker.Handle(), message::kLeftButtonDown);
  EXPECT_EQ(picker.Handle(), FocusedWindow());
  SetText(picker.Handle(), u"5");
  EXPECT_EQ(u"31", TextOf(picker.Handle()));
  EXPECT_EQ(dialog_code::kWantArrows | dialog_code::kWantChars, Send(picker.Handle(), message::kGetDialogCode));
}

}  // namespace
}  // namespace platform
