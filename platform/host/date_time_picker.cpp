// Date and time pickers: one field of the format is selected, the keys change it.
#include "platform/host/date_format.h"
#include "platform/host/painting.h"
#include "platform/host/plain_window.h"

#include <algorithm>

namespace platform::host {

namespace {

constexpr WideStringView kDefaultFormat = u"M/d/yyyy";
constexpr int kFirstYear = 1752;
constexpr int kLastYear = 9999;
constexpr int kGotFocus = -7;
constexpr int kLostFocus = -8;

// What lParam of the change notification points to, as Windows lays it out.
struct ChangeNotification {
  NotifyHeader header;
  std::uint32_t flags = 0;
  SystemTime time;
};

class DateTimePicker : public PickerBehaviour {
 public:
  LResult Handle(WindowRecord& window, const Message& message) override {
    switch (message.id) {
      case message::kPickerGetSystemTime:
        if (auto* time = FromParam<SystemTime>(message.lParam)) *time = time_;
        return 0;
      case message::kPickerSetSystemTime: return SetTime(window, FromParam<const SystemTime>(message.lParam));
      case message::kPickerSetFormat: return SetFormat(window, TextParam(message));
      case message::kSetText: return 0;
      case message::kGetDialogCode: return dialog_code::kWantArrows | dialog_code::kWantChars;
      case message::kSetFocus:
        window.needsPaint = true;
        Notify(window, kGotFocus);
        return 0;
      case message::kKillFocus:
        ApplyTyped(window);
        window.needsPaint = true;
        Notify(window, kLostFocus);
        return 0;
      case message::kLeftButtonDown: Focus(window.handle); return 0;
      case message::kKeyDown: return OnKeyDown(window, message.wParam);
      case message::kChar: return OnCharacter(window, static_cast<char16_t>(message.wParam));
      case message::kEnable: window.needsPaint = true; return 0;
      case message::kPaint: PaintControl(window, message::kControlColorEdit); return 0;
      case message::kCreate: Update(window); return 0;
      default: return HandlePlainMessage(window, message);
    }
  }

  PickerState State() const override {
    PickerState state;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      const bool isSelected = i == selected_ && fields_[i].CanBeEdited();
      if (isSelected) state.fieldStart = static_cast<int>(state.shown.size());
      state.shown += isSelected && !typed_.empty() ? typed_ : FormatField(fields_[i], time_);
      if (isSelected) state.fieldEnd = static_cast<int>(state.shown.size());
    }
    state.time = time_;
    return state;
  }

 private:
  // The window's text is what it shows.
  void Update(WindowRecord& window) {
    window.text = State().shown;
    window.needsPaint = true;
  }

  LResult SetTime(WindowRecord& window, const SystemTime* time) {
    if (time == nullptr || !IsDateAndTime(*time)) return 0;
    time_ = *time;
    time_.dayOfWeek = static_cast<std::uint16_t>(DayOfWeek(time_.year, time_.month, time_.day));
    Update(window);
    return 1;
  }

  LResult SetFormat(WindowRecord& window, WideStringView format) {
    fields_ = ParseDateFormat(format.empty() ? kDefaultFormat : format);
    typed_.clear();
    selected_ = 0;
    if (!HasField()) Step(1);
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
    time_.day = static_cast<std::uint16_t>(std::min<int>(time_.day, DaysInMonth(time_.year, time_.month)));
    time_.dayOfWeek = static_cast<std::uint16_t>(DayOfWeek(time_.year, time_.month, time_.day));
    Update(window);
    Notify(window, notification::kPickerDateTimeChange);
  }

  bool HasField() const { return selected_ < fields_.size() && fields_[selected_].CanBeEdited(); }

  // To the next field that can be edited, round the ends.
  void Step(int direction) {
    const std::size_t count = fields_.size();
    for (std::size_t tried = 0; tried < count; ++tried) {
      selected_ = (selected_ + (direction > 0 ? 1 : count - 1)) % count;
      if (HasField()) return;
    }
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

  std::uint16_t* PartOf(DatePart part) {
    switch (part) {
      case DatePart::kYear: return &time_.year;
      case DatePart::kMonth: return &time_.month;
      case DatePart::kDay: return &time_.day;
      case DatePart::kHour:
      case DatePart::kHalfDay: return &time_.hour;
      case DatePart::kMinute: return &time_.minute;
      case DatePart::kSecond: return &time_.second;
      default: return nullptr;
    }
  }

  void Increase(WindowRecord& window, int delta) {
    const DatePart part = fields_[selected_].part;
    std::uint16_t& value = *PartOf(part);
    if (part == DatePart::kHalfDay) {
      value = static_cast<std::uint16_t>((value + 12) % 24);
    } else {
      const Bounds bounds = BoundsOf(part);
      int next = value + delta;
      if (next > bounds.last) next = part == DatePart::kYear ? bounds.last : bounds.first;
      if (next < bounds.first) next = part == DatePart::kYear ? bounds.first : bounds.last;
      value = static_cast<std::uint16_t>(next);
    }
    Changed(window);
  }

  LResult OnKeyDown(WindowRecord& window, WParam virtualKey) {
    if (!HasField()) return 0;
    switch (virtualKey) {
      case key::kLeft:
      case key::kRight:
        ApplyTyped(window);
        Step(virtualKey == key::kRight ? 1 : -1);
        Update(window);
        return 0;
      case key::kUp:
      case key::kDown:
        ApplyTyped(window);
        Increase(window, virtualKey == key::kUp ? 1 : -1);
        return 0;
      case key::kHome:
      case key::kEnd: {
        ApplyTyped(window);
        const DatePart part = fields_[selected_].part;
        const Bounds bounds = BoundsOf(part);
        if (part != DatePart::kHalfDay)
          *PartOf(part) = static_cast<std::uint16_t>(virtualKey == key::kHome ? bounds.first : bounds.last);
        Changed(window);
        return 0;
      }
      default: return 0;
    }
  }

  LResult OnCharacter(WindowRecord& window, char16_t character) {
    if (!HasField()) return 0;
    const DateField& field = fields_[selected_];
    if (field.part == DatePart::kHalfDay) {
      const char16_t half = base::ToUpper(character);
      if (half != u'A' && half != u'P') return 0;
      time_.hour = static_cast<std::uint16_t>(time_.hour % 12 + (half == u'P' ? 12 : 0));
      Changed(window);
      return 0;
    }
    if (!base::IsDigit(character)) return 0;
    typed_ += character;
    const std::size_t most = field.part == DatePart::kYear && field.letters > 2 ? 4 : 2;
    if (typed_.size() >= most) {
      ApplyTyped(window);
    } else {
      Update(window);
    }
    return 0;
  }

  // Digits that give no value of the field are dropped.
  void ApplyTyped(WindowRecord& window) {
    if (typed_.empty() || !HasField()) return;
    int value = 0;
    for (const char16_t digit : typed_) value = value * 10 + (digit - u'0');
    typed_.clear();
    const DateField& field = fields_[selected_];
    if (field.part == DatePart::kYear && field.letters <= 2) value += time_.year - time_.year % 100;
    if (field.twelveHours) {
      if (value < 1 || value > 12) return Update(window);
      value = value % 12 + (time_.hour >= 12 ? 12 : 0);
    }
    const Bounds bounds = BoundsOf(field.part);
    if (value < bounds.first || value > bounds.last) return Update(window);
    *PartOf(field.part) = static_cast<std::uint16_t>(value);
    Changed(window);
  }

  std::vector<DateField> fields_ = ParseDateFormat(kDefaultFormat);
  std::size_t selected_ = 0;
  SystemTime time_ = LocalTime();
  WideString typed_;
};

}  // namespace

std::unique_ptr<PickerBehaviour> MakeDateTimePicker() { return std::make_unique<DateTimePicker>(); }

}  // namespace platform::host
