// Date and time pickers: the arrows select one field of the format, the keys change it.
//
// The small habits of the desktop's control are kept, because a program can tell: no field is selected until the first
// Right, Left steps out before the first field, Home and End both give a field's greatest value, and a value that a
// field cannot take is sometimes reported as a change.
#include "platform/host/date_format.h"
#include "platform/host/painting.h"
#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

constexpr WideStringView kDefaultFormat = u"M/d/yyyy";
constexpr int kFirstYear = 1753;
constexpr int kLastYear = 9999;
constexpr int kGotFocus = -7;
constexpr int kLostFocus = -8;
constexpr int kNoField = -1;
constexpr int kFarthestLeft = -1000;

// What lParam of the change notification points to, as Windows lays it out.
struct ChangeNotification {
  NotifyHeader header;
  std::uint32_t flags = 0;
  SystemTime time;
};

std::uint16_t Part(int value) { return static_cast<std::uint16_t>(value); }

class DateTimePicker : public PickerBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    switch (message.id) {
      case message::kCreate: Update(window); return 0;
      case message::kPickerGetSystemTime:
        if (auto* time = FromParam<SystemTime>(message.lParam)) *time = time_;
        return 0;
      case message::kPickerSetSystemTime: return SetTime(window, FromParam<const SystemTime>(message.lParam));
      case message::kPickerSetFormat: return SetFormat(window, TextParam(message));
      case message::kSetText: return 0;
      case message::kGetDialogCode: return dialog_code::kWantArrows | dialog_code::kWantChars;
      case message::kSetFocus:
        field_ = kNoField;
        Notify(window, kGotFocus);
        window.needsPaint = true;
        return 0;
      case message::kKillFocus:
        Notify(window, kLostFocus);
        TakeTyped(window);
        window.needsPaint = true;
        return 0;
      case message::kLeftButtonDown: Focus(window.handle); return 0;
      case message::kKeyDown: return OnKeyDown(window, message.wParam);
      case message::kChar: return OnCharacter(window, static_cast<char16_t>(message.wParam));
      case message::kEnable: window.needsPaint = true; return 0;
      case message::kPaint: PaintControl(window, message::kControlColorEdit); return 0;
      default: return HandlePlainMessage(window, message);
    }
  }

  PickerState State() const override {
    PickerState state;
    const DateField* const selected = Selected();
    for (const DateField& field : fields_) {
      if (&field == selected) state.fieldStart = static_cast<int>(state.shown.size());
      state.shown += FormatField(field, time_);
      if (&field == selected) state.fieldEnd = static_cast<int>(state.shown.size());
    }
    state.time = time_;
    state.typed = typed_;
    return state;
  }

 private:
  // The window's text is the value, without digits that are not taken over yet.
  void Update(WindowRecord& window) {
    window.text = State().shown;
    window.needsPaint = true;
  }

  LResult SetTime(WindowRecord& window, const SystemTime* time) {
    if (time == nullptr || !IsDateAndTime(*time)) return 0;
    if (time->year < kFirstYear || time->year > kLastYear) return 1;  // accepted, and not shown
    time_ = *time;
    time_.dayOfWeek = Part(DayOfWeek(time_.year, time_.month, time_.day));
    Update(window);
    return 1;
  }

  LResult SetFormat(WindowRecord& window, WideStringView format) {
    fields_ = ParseDateFormat(format.empty() ? kDefaultFormat : format);
    typed_.clear();
    Update(window);
    return 1;
  }

  void Notify(WindowRecord& window, int code) {
    ChangeNotification change;
    change.header = {window.handle, static_cast<std::uintptr_t>(window.id), code};
    change.time = time_;
    Send(window.parent, message::kNotify, static_cast<WParam>(window.id), ToLParam(&change));
  }

  void Changed(WindowRecord& window) {
    time_.dayOfWeek = Part(DayOfWeek(time_.year, time_.month, time_.day));
    Update(window);
    Notify(window, notification::kPickerDateTimeChange);
  }

  // field_ counts the fields that can be edited.
  const DateField* Selected() const {
    int index = 0;
    for (const DateField& field : fields_) {
      if (field.CanBeEdited() && index++ == field_) return &field;
    }
    return nullptr;
  }

  void SelectNext() {
    ++field_;
    if (field_ >= 0 && Selected() == nullptr) field_ = 0;
  }

  struct Bounds {
    int first;
    int last;
  };
  Bounds BoundsOf(DatePart part) const {
    switch (part) {
      case DatePart::kYear: return {kFirstYear, kLastYear};
      case DatePart::kMonth: return {1, 12};
      case DatePart::kDay: return {1, DaysInMonth(time_.year, time_.month)};
      case DatePart::kHour: return {0, 23};
      default: return {0, 59};
    }
  }

  std::uint16_t& ValueOf(DatePart part) {
    switch (part) {
      case DatePart::kYear: return time_.year;
      case DatePart::kMonth: return time_.month;
      case DatePart::kDay: return time_.day;
      case DatePart::kMinute: return time_.minute;
      case DatePart::kSecond: return time_.second;
      default: return time_.hour;
    }
  }

  // Half a day on or back; past an end of the day it goes to the other end.
  void MoveHalfDay(int delta) {
    const int next = time_.hour + 12 * delta;
    time_.hour = Part(next > 23 ? 0 : next < 0 ? 23 : next);
  }

  void Increase(const DateField& field, int delta) {
    if (field.part == DatePart::kHalfDay) return MoveHalfDay(delta);
    if (field.part == DatePart::kYear && field.letters == 3) return;  // a year in three letters knows no arrows
    const Bounds bounds = BoundsOf(field.part);
    int next = ValueOf(field.part) + delta;
    if (next > bounds.last) next = field.part == DatePart::kYear ? bounds.last : bounds.first;
    if (next < bounds.first) next = field.part == DatePart::kYear ? bounds.first : bounds.last;
    ValueOf(field.part) = Part(next);
    if (time_.day > DaysInMonth(time_.year, time_.month)) time_.day = 1;
  }

  void SetGreatest(const DateField& field, bool end) {
    if (field.part == DatePart::kHalfDay) {
      if (end) MoveHalfDay(-1);
    } else if (field.part != DatePart::kYear || field.letters != 3) {
      ValueOf(field.part) = Part(BoundsOf(field.part).last);
      if (time_.day > DaysInMonth(time_.year, time_.month)) time_.day = 1;
    }
  }

  LResult OnKeyDown(WindowRecord& window, WParam virtualKey) {
    switch (virtualKey) {
      case key::kLeft:
        TakeTyped(window);
        field_ = std::max(field_ - 1, kFarthestLeft);
        window.needsPaint = true;
        return 0;
      case key::kRight:
        TakeTyped(window);
        SelectNext();
        window.needsPaint = true;
        return 0;
      case key::kUp:
      case key::kDown:
      case key::kHome:
      case key::kEnd: break;
      default: return 0;
    }
    typed_.clear();
    if (const DateField* field = Selected()) {
      if (virtualKey == key::kUp || virtualKey == key::kDown) {
        Increase(*field, virtualKey == key::kUp ? 1 : -1);
      } else {
        SetGreatest(*field, virtualKey == key::kEnd);
      }
    }
    Changed(window);
    return 0;
  }

  LResult OnCharacter(WindowRecord& window, char16_t character) {
    const DateField* const field = Selected();
    if (field != nullptr && field->part == DatePart::kHalfDay) {
      const char16_t half = base::ToUpper(character);
      if (half == u'A' || half == u'P') time_.hour = Part(time_.hour % 12 + (half == u'P' ? 12 : 0));
      Changed(window);
      return 0;
    }
    if (field == nullptr || !base::IsDigit(character)) return 0;
    typed_ += character;
    const std::size_t most = field->part == DatePart::kYear && field->letters > 2 ? 4 : 2;
    const bool noMoreCanFollow = field->part == DatePart::kHour && character > u'2';
    if (typed_.size() >= most || noMoreCanFollow) TakeTyped(window);
    window.needsPaint = true;
    return 0;
  }

  void TakeTyped(WindowRecord& window) {
    const DateField* const field = Selected();
    if (typed_.empty() || field == nullptr) return;
    int value = 0;
    for (const char16_t digit : typed_) value = value * 10 + (digit - u'0');
    typed_.clear();
    if (SetValue(*field, value)) Changed(window);
  }

  // Whether the field reports a change; some do when they have refused the value.
  bool SetValue(const DateField& field, int value) {
    if (field.part == DatePart::kHour && field.twelveHours) {
      SetTwelveHours(value);
      return true;
    }
    if (field.part == DatePart::kMonth && field.letters > 2) return true;  // names are not typed
    if (field.part == DatePart::kYear && field.letters <= 2) value += time_.year - time_.year % 100;
    const Bounds bounds = BoundsOf(field.part);
    if (value < bounds.first || value > bounds.last) return field.part == DatePart::kYear;
    ValueOf(field.part) = Part(value);
    time_.day = Part(std::min<int>(time_.day, DaysInMonth(time_.year, time_.month)));
    return true;
  }

  // The half of the day stays, unless the number itself names an hour of the second half.
  void SetTwelveHours(int value) {
    if (value >= 24) value -= 20;
    if (value > 12) {
      time_.hour = Part(value);
    } else if (value > 0) {
      time_.hour = Part(value % 12 + (time_.hour >= 12 ? 12 : 0));
    }
  }

  std::vector<DateField> fields_ = ParseDateFormat(kDefaultFormat);
  int field_ = kNoField;
  SystemTime time_ = LocalTime();
  WideString typed_;
};

}  // namespace

std::unique_ptr<PickerBehaviour> MakeDateTimePicker() { return std::make_unique<DateTimePicker>(); }

}  // namespace platform::host
