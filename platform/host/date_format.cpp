#include "platform/host/date_format.h"

#include "base/format.h"

#include <array>

namespace platform::host {

namespace {

constexpr WideStringView kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                      u"July",    u"August",   u"September", u"October", u"November", u"December"};
constexpr WideStringView kWeekdays[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                        u"Thursday", u"Friday", u"Saturday"};

struct Letter {
  char16_t letter;
  DatePart part;
  int mostLetters;
};

constexpr Letter kLetters[] = {
    {u'y', DatePart::kYear, 4},   {u'M', DatePart::kMonth, 4},   {u'd', DatePart::kDay, 4},
    {u'h', DatePart::kHour, 2},   {u'H', DatePart::kHour, 2},    {u'm', DatePart::kMinute, 2},
    {u's', DatePart::kSecond, 2}, {u't', DatePart::kHalfDay, 2},
};

const Letter* FindLetter(char16_t unit) {
  for (const Letter& letter : kLetters) {
    if (letter.letter == unit) return &letter;
  }
  return nullptr;
}

WideString Number(int value, int digits) { return base::Format(digits >= 2 ? u"%02d" : u"%d", value); }

WideString Name(WideStringView name, int letters) { return WideString(letters == 3 ? name.substr(0, 3) : name); }

template <std::size_t N>
WideStringView At(const WideStringView (&names)[N], int index) {
  return index >= 0 && index < static_cast<int>(N) ? names[index] : WideStringView();
}

}  // namespace

std::vector<DateField> ParseDateFormat(WideStringView format) {
  std::vector<DateField> fields;
  const auto addLiteral = [&fields](char16_t unit) {
    if (fields.empty() || fields.back().part != DatePart::kLiteral) fields.emplace_back();
    fields.back().literal += unit;
  };
  bool quoted = false;
  for (std::size_t i = 0; i < format.size();) {
    const char16_t unit = format[i];
    const Letter* const letter = quoted ? nullptr : FindLetter(unit);
    if (unit == u'\'') {
      const bool doubled = i + 1 < format.size() && format[i + 1] == u'\'';
      if (doubled) addLiteral(unit);
      if (!doubled) quoted = !quoted;
      i += doubled ? 2 : 1;
    } else if (letter == nullptr) {
      addLiteral(unit);
      ++i;
    } else {
      DateField field;
      field.part = letter->part;
      field.twelveHours = unit == u'h';
      while (i < format.size() && format[i] == unit && field.letters < letter->mostLetters) ++field.letters, ++i;
      if (field.part == DatePart::kDay && field.letters > 2) field.part = DatePart::kWeekday;
      fields.push_back(field);
    }
  }
  return fields;
}

WideString FormatField(const DateField& field, const SystemTime& time) {
  switch (field.part) {
    case DatePart::kLiteral: return field.literal;
    case DatePart::kYear: return field.letters > 2 ? base::Format(u"%04d", time.year) : Number(time.year % 100, 2);
    case DatePart::kMonth:
      return field.letters > 2 ? Name(At(kMonths, time.month - 1), field.letters) : Number(time.month, field.letters);
    case DatePart::kDay: return Number(time.day, field.letters);
    case DatePart::kWeekday: return Name(At(kWeekdays, time.dayOfWeek), field.letters);
    case DatePart::kHour:
      return Number(field.twelveHours ? (time.hour + 11) % 12 + 1 : static_cast<int>(time.hour), field.letters);
    case DatePart::kMinute: return Number(time.minute, field.letters);
    case DatePart::kSecond: return Number(time.second, field.letters);
    case DatePart::kHalfDay:
      return WideString(time.hour < 12 ? u"AM" : u"PM").substr(0, static_cast<std::size_t>(field.letters));
  }
  return {};
}

int DaysInMonth(int year, int month) {
  constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  if (month < 1 || month > 12) return 0;
  return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

int DayOfWeek(int year, int month, int day) {
  constexpr std::array<int, 12> kMonthShift{0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
  if (month < 1 || month > 12) return 0;
  if (month < 3) --year;
  return (year + year / 4 - year / 100 + year / 400 + kMonthShift[static_cast<std::size_t>(month - 1)] + day) % 7;
}

bool IsDateAndTime(const SystemTime& time) {
  return time.year >= 1601 && time.year <= 9999 && time.day >= 1 && time.day <= DaysInMonth(time.year, time.month) &&
         time.hour < 24 && time.minute < 60 && time.second < 60 && time.milliseconds < 1000;
}

}  // namespace platform::host
