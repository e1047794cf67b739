// The formats of date and time pickers, such as "MMM dd',' yyy" and "hh':'mm':'ss' 'tt".
#pragma once

#include "platform/controls.h"

#include <vector>

namespace platform::host {

enum class DatePart { kLiteral, kYear, kMonth, kDay, kWeekday, kHour, kMinute, kSecond, kHalfDay };

// A run of one letter, or the text between two of them.
struct DateField {
  DatePart part = DatePart::kLiteral;
  int letters = 0;
  bool twelveHours = false;  // of kHour
  WideString literal;

  bool CanBeEdited() const { return part != DatePart::kLiteral && part != DatePart::kWeekday; }
};

// Never fails: what is no letter of a field is literal; texts in quotes are, too.
std::vector<DateField> ParseDateFormat(WideStringView format);

// How a field shows a time.
WideString FormatField(const DateField& field, const SystemTime& time);

int DaysInMonth(int year, int month);
int DayOfWeek(int year, int month, int day);  // 0: Sunday
bool IsDateAndTime(const SystemTime& time);

}  // namespace platform::host
