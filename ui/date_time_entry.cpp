#include "ui/date_time_entry.h"

#include "base/format.h"
#include "base/number.h"

#include <algorithm>

namespace ui {
namespace {

// A number's digits, filled up with zeros in front to a length; nothing when it is no such number.
std::optional<WideString> DigitsOf(const WideString& value, std::size_t length) {
  if (value.empty() || value.size() > length) return std::nullopt;
  if (!std::all_of(value.begin(), value.end(), base::IsDigit)) return std::nullopt;
  return WideString(length - value.size(), u'0') + value;
}

std::uint16_t Part(const WideString& digits, std::size_t start, std::size_t length) {
  return static_cast<std::uint16_t>(base::ToLong(WideStringView(digits).substr(start, length)));
}

}  // namespace

// No field of a picker may be selected until an arrow key is pressed: with this one Up and Down work at once.
void PickerEntry::Start() { platform::Send(Handle(), platform::message::kKeyDown, platform::key::kRight); }

// A picker takes typed digits over when it loses the focus.
bool PickerEntry::Finish() {
  if (platform::FocusedWindow() == Handle()) {
    platform::Focus(platform::ParentOf(Handle()));
    platform::Focus(Handle());
  }
  return true;
}

void DateEntry::Fill(const EditRequest& request) {
  Picker().SetFormat(u"MMM dd',' yyy");
  if (const auto digits = DigitsOf(request.value, 8)) {
    const platform::SystemTime date{
        .year = Part(*digits, 0, 4), .month = Part(*digits, 4, 2), .day = Part(*digits, 6, 2)};
    if (Picker().SetTime(date)) return;
  }
  Picker().SetTime(platform::LocalTime());
}

EnteredValue DateEntry::Entered() const {
  const platform::SystemTime date = Picker().Time();
  const WideString text = base::Format(u"%.4d%.2d%.2d", date.year, date.month, date.day);
  return {text, values::EntryMode::kTyped, text};
}

void TimeEntry::Fill(const EditRequest& request) {
  Picker().SetFormat(u"hh':'mm':'ss' 'tt");
  platform::SystemTime time = platform::LocalTime();  // the picker wants a date as well
  time.hour = time.minute = time.second = time.milliseconds = 0;
  const platform::SystemTime midnight = time;
  if (const auto digits = DigitsOf(request.value, 6)) {
    time.hour = Part(*digits, 0, 2);
    time.minute = Part(*digits, 2, 2);
    time.second = Part(*digits, 4, 2);
  }
  if (!Picker().SetTime(time)) Picker().SetTime(midnight);
}

EnteredValue TimeEntry::Entered() const {
  const platform::SystemTime time = Picker().Time();
  const WideString text = base::Format(u"%.2d%.2d%.2d", time.hour, time.minute, time.second);
  return {text, values::EntryMode::kTyped, text};
}

}  // namespace ui
