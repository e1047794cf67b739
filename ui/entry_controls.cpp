#include "ui/entry_controls.h"

#include "base/format.h"
#include "base/number.h"
#include "base/string_table.h"
#include "ui/edit_templates.h"
#include "ui/ip_address_control.h"
#include "ui/text_entry.h"
#include "values/ip_address.h"
#include "values/value_types.h"

#include <algorithm>

namespace ui {
namespace {

using platform::WindowHandle;
using values::EntryMode;

// --- lists ---

class ChoiceEntry final : public EntryControl {
 public:
  explicit ChoiceEntry(WindowHandle window) : EntryControl(window), list_(window) {}

  bool IsList() const override { return true; }

  void Fill(const EditRequest& request) override {
    for (const WideString& choice : request.choices) list_.Add(choice);
    if (request.selected >= 0) list_.Select(request.selected);
  }

  EnteredValue Entered() const override {
    const int selected = list_.Selected();
    const WideString text = selected < 0 ? WideString() : list_.Line(selected);
    return {text, EntryMode::kChoice, text};
  }

 private:
  platform::ListBox list_;
};

// TRUE and FALSE: of a flag, saved as 1 and 0, or of a choice list with these two texts, saved as any choice.
class TrueFalseEntry final : public EntryControl {
 public:
  explicit TrueFalseEntry(WindowHandle window) : EntryControl(window), choices_(window), list_(window) {}

  bool IsList() const override { return true; }

  void Fill(const EditRequest& request) override {
    isFlag_ = request.choices.empty();
    EditRequest shown = request;
    if (isFlag_) {
      shown.choices = {WideString(values::kTrueText), WideString(values::kFalseText)};
      shown.selected = request.number != 0 ? 0 : 1;
    }
    choices_.Fill(shown);
  }

  EnteredValue Entered() const override {
    EnteredValue entered = choices_.Entered();
    if (isFlag_) {
      entered.mode = EntryMode::kTyped;
      entered.text = list_.Selected() == 0 ? u"1" : u"0";
    }
    return entered;
  }

 private:
  ChoiceEntry choices_;
  platform::ListBox list_;
  bool isFlag_ = true;
};

// --- date and time ---

// A number's digits, filled up with zeros in front to a length; nothing when it is no such number.
std::optional<WideString> DigitsOf(const WideString& value, std::size_t length) {
  if (value.empty() || value.size() > length) return std::nullopt;
  if (!std::all_of(value.begin(), value.end(), base::IsDigit)) return std::nullopt;
  return WideString(length - value.size(), u'0') + value;
}

std::uint16_t Part(const WideString& digits, std::size_t start, std::size_t length) {
  return static_cast<std::uint16_t>(base::ToLong(WideStringView(digits).substr(start, length)));
}

class PickerEntry : public EntryControl {
 public:
  explicit PickerEntry(WindowHandle window) : EntryControl(window), picker_(window) {}

  // No field of a picker may be selected until an arrow key is pressed: with this one Up and Down work at once.
  void Start() override { platform::Send(Handle(), platform::message::kKeyDown, platform::key::kRight); }

  // A picker takes typed digits over when it loses the focus.
  bool Finish() override {
    if (platform::FocusedWindow() == Handle()) {
      platform::Focus(platform::ParentOf(Handle()));
      platform::Focus(Handle());
    }
    return true;
  }

 protected:
  const platform::DateTimePicker& Picker() const { return picker_; }

 private:
  platform::DateTimePicker picker_;
};

class DateEntry final : public PickerEntry {
 public:
  using PickerEntry::PickerEntry;

  void Fill(const EditRequest& request) override {
    Picker().SetFormat(u"MMM dd',' yyy");
    if (const auto digits = DigitsOf(request.value, 8)) {
      const platform::SystemTime date{
          .year = Part(*digits, 0, 4), .month = Part(*digits, 4, 2), .day = Part(*digits, 6, 2)};
      if (Picker().SetTime(date)) return;
    }
    Picker().SetTime(platform::LocalTime());
  }

  EnteredValue Entered() const override {
    const platform::SystemTime date = Picker().Time();
    const WideString text = base::Format(u"%.4d%.2d%.2d", date.year, date.month, date.day);
    return {text, EntryMode::kTyped, text};
  }
};

class TimeEntry final : public PickerEntry {
 public:
  using PickerEntry::PickerEntry;

  void Fill(const EditRequest& request) override {
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

  EnteredValue Entered() const override {
    const platform::SystemTime time = Picker().Time();
    const WideString text = base::Format(u"%.2d%.2d%.2d", time.hour, time.minute, time.second);
    return {text, EntryMode::kTyped, text};
  }
};

// --- address ---

class AddressEntry final : public EntryControl {
 public:
  using EntryControl::EntryControl;

  void Fill(const EditRequest& request) override {
    if (request.text.empty()) {
      platform::Send(Handle(), address_message::kClear);
    } else {
      platform::Send(Handle(), address_message::kSet, 0, static_cast<platform::LParam>(request.number));
    }
  }

  // A button leaves the fields without the check that their keys make.
  bool Finish() override { return platform::Send(Handle(), address_message::kCheck) != 0; }

  EnteredValue Entered() const override {
    std::uint32_t address = 0;
    platform::Send(Handle(), address_message::kGet, 0, platform::ToLParam(&address));
    const WideString text = values::DottedIpAddress(static_cast<std::int32_t>(address));
    return {text, EntryMode::kTyped, text};
  }
};

// --- which entry for which property ---

struct TypeRow {
  TextId type;
  EntryKind plain;  // of a property without choices
  bool choices;     // a choice list when there are choices
  bool trueFalse;   // but the list of TRUE and FALSE when these are the choices
  bool dateTime;    // date and time by subtype, choices or not
};

constexpr TypeRow kTypes[] = {
    {TextId::kInteger, EntryKind::kNumber, true, false, true},
    {TextId::kBool, EntryKind::kTrueFalse, true, true, false},
    {TextId::kOctetString, EntryKind::kText, true, true, false},
    {TextId::kHex, EntryKind::kHex, true, true, false},
    {TextId::kHex32, EntryKind::kHex32, true, true, false},
    {TextId::kIpAddress, EntryKind::kAddress, false, false, false},
    {TextId::kPassword, EntryKind::kText, false, false, false},
};

bool AreTrueAndFalse(const std::vector<WideString>& choices) {
  return choices.size() == 2 && (base::EqualsIgnoringCase(choices[0], values::kTrueText) ||
                                 base::EqualsIgnoringCase(choices[0], values::kFalseText));
}

struct KindRow {
  EntryKind kind;
  int controlId;
  std::unique_ptr<EntryControl> (*make)(WindowHandle window, InsertFlag& insertFlag);
};

template <typename Entry>
std::unique_ptr<EntryControl> Make(WindowHandle window, InsertFlag&) {
  return std::make_unique<Entry>(window);
}

template <TextFilter filter>
std::unique_ptr<EntryControl> MakeText(WindowHandle window, InsertFlag& insertFlag) {
  return std::make_unique<TextEntry>(window, filter, insertFlag);
}

constexpr KindRow kKinds[] = {
    {EntryKind::kText, kTextEntryId, MakeText<TextFilter::kAny>},
    {EntryKind::kNumber, kTextEntryId, MakeText<TextFilter::kNumeric>},
    {EntryKind::kHex, kTextEntryId, MakeText<TextFilter::kWepKey>},
    {EntryKind::kHex32, kTextEntryId, MakeText<TextFilter::kPreSharedKey>},
    {EntryKind::kChoices, kChoiceListId, Make<ChoiceEntry>},
    {EntryKind::kTrueFalse, kChoiceListId, Make<TrueFalseEntry>},
    {EntryKind::kDate, kDateTimeEntryId, Make<DateEntry>},
    {EntryKind::kTime, kDateTimeEntryId, Make<TimeEntry>},
    {EntryKind::kAddress, kAddressEntryId, Make<AddressEntry>},
};

const KindRow* FindKind(EntryKind kind) {
  const auto found =
      std::find_if(std::begin(kKinds), std::end(kKinds), [kind](const KindRow& row) { return row.kind == kind; });
  return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace

EntryKind ChooseEntryKind(const EditRequest& request) {
  for (const TypeRow& row : kTypes) {
    if (!base::EqualsIgnoringCase(request.editorType, LoadText(row.type))) continue;
    if (row.dateTime && base::EqualsIgnoringCase(request.subType, u"Date")) return EntryKind::kDate;
    if (row.dateTime && base::EqualsIgnoringCase(request.subType, u"Time")) return EntryKind::kTime;
    if (row.trueFalse && AreTrueAndFalse(request.choices)) return EntryKind::kTrueFalse;
    if (row.choices && !request.choices.empty()) return EntryKind::kChoices;
    return row.plain;
  }
  return EntryKind::kNone;
}

int EntryControlId(EntryKind kind) {
  const KindRow* const row = FindKind(kind);
  return row == nullptr ? 0 : row->controlId;
}

std::unique_ptr<EntryControl> MakeEntryControl(EntryKind kind, WindowHandle window, InsertFlag& insertFlag) {
  const KindRow* const row = FindKind(kind);
  return row == nullptr ? nullptr : row->make(window, insertFlag);
}

}  // namespace ui
