#include "settings/entered_value.h"

#include "base/number.h"
#include "base/string_table.h"
#include "base/utf8.h"
#include "model/entry_kind.h"
#include "ui/entry_kinds.h"
#include "values/ip_address.h"
#include "values/key_rules.h"
#include "values/value_types.h"

#include <algorithm>

namespace settings {
namespace {

using ui::EntryKind;
using values::ChoiceFormat;
using values::EntryMode;
using values::PropertyDescriptor;
using values::PropertyValue;
using GivenKind = GivenValue::Kind;

Reading Refuse(std::string why) { return {std::nullopt, std::move(why)}; }

Reading Typed(const PropertyDescriptor& property, WideString text) {
  EnteredValue entered{std::move(text), EntryMode::kTyped, {}};
  property.ParseValue(entered.text, entered.value);
  return {std::move(entered), {}};
}

bool IsTypable(char16_t unit) { return unit >= u' ' && unit != 0x7F; }

bool AreDigits(WideStringView text) { return std::all_of(text.begin(), text.end(), base::IsDigit); }

std::size_t MostCharacters(const ui::EditRequest& request) {
  const auto most = static_cast<std::size_t>(std::max(request.maxChars, 0));
  if (request.mask.empty() || most == 0) return std::max(request.mask.size(), most);
  return std::min(request.mask.size(), most);
}

Reading ReadText(const PropertyDescriptor& property, const ui::EditRequest& request, WideString text, bool isNumber) {
  if (isNumber && !AreDigits(text)) return Refuse("only digits can be entered");
  if (!std::all_of(text.begin(), text.end(), IsTypable)) return Refuse("it has a character that cannot be entered");
  const std::size_t most = MostCharacters(request);
  if (most != 0 && text.size() > most) {
    return Refuse("it is " + std::to_string(text.size()) + " characters long, and no more than " +
                  std::to_string(most) + " can be entered");
  }
  return Typed(property, std::move(text));
}

std::string ListOf(const ChoiceFormat& choices) {
  constexpr std::size_t kMost = 20;
  std::string list;
  for (std::size_t i = 0; i < choices.Count() && i < kMost; ++i) {
    list += (list.empty() ? "" : ", ") + base::ToUtf8(choices.Entries()[i].text);
  }
  return choices.Count() > kMost ? list + ", ..." : list;
}

Reading ReadChoice(const PropertyDescriptor& property, const GivenValue& given) {
  const ChoiceFormat choices = property.Choices();
  EnteredValue entered{given.text, EntryMode::kChoice, {}};
  if (given.kind != GivenKind::kShown && given.kind != GivenKind::kSecret) {
    PropertyValue value;
    property.ParseValue(given.text, value);
    const auto index = choices.IndexOf(value);
    if (!index) return Refuse("it is none of the choices now, which are " + ListOf(choices));
    entered.text = choices.Entries()[*index].text;
    // Of two choices with one text the first is what the menus store.
    if (!ChoiceTextToValue(property, entered.text, entered.value) || entered.value != value) {
      return Refuse("no choice stores it: another one has the same text");
    }
    return {std::move(entered), {}};
  }
  if (!ChoiceTextToValue(property, entered.text, entered.value)) {
    return Refuse("it is none of the choices now, which are " + ListOf(choices));
  }
  return {std::move(entered), {}};
}

Reading ReadFlag(const PropertyDescriptor& property, const GivenValue& given) {
  const bool isTrue = base::EqualsIgnoringCase(given.text, values::kTrueText) || given.text == u"1";
  const bool isFalse = base::EqualsIgnoringCase(given.text, values::kFalseText) || given.text == u"0";
  if (!isTrue && !isFalse) return Refuse("it is TRUE or FALSE");
  return Typed(property, isTrue ? u"1" : u"0");
}

Reading ReadAddress(const PropertyDescriptor& property, const WideString& text) {
  if (values::IpAddressFromDotted(text) == values::kNoIpAddress && text != u"255.255.255.255") {
    return Refuse("an address is four numbers from 0 to 255, with dots between them");
  }
  return Typed(property, text);
}

int Part(WideStringView digits, std::size_t start, std::size_t length) {
  return base::ToLong(digits.substr(start, length));
}

// As the picker gives it: YYYYMMDD.
Reading ReadDate(const PropertyDescriptor& property, const WideString& text) {
  static constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (text.size() != 8 || !AreDigits(text)) return Refuse("a date is year, month and day, such as 20261122");
  const int year = Part(text, 0, 4);
  const int month = Part(text, 4, 2);
  const int day = Part(text, 6, 2);
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  const bool isDay = month >= 1 && month <= 12 && day >= 1 && day <= kDays[month - 1] && (month != 2 || day < 29 || isLeap);
  constexpr int kFirstYear = 1601;  // of the system's calendar
  if (!isDay || year < kFirstYear) return Refuse("there is no such date");
  return Typed(property, text);
}

// As the picker gives it: HHMMSS. A device may have it without zeros in front.
Reading ReadTime(const PropertyDescriptor& property, const WideString& text) {
  constexpr std::size_t kLength = 6;
  if (text.empty() || text.size() > kLength || !AreDigits(text)) {
    return Refuse("a time is hours, minutes and seconds, such as 093000");
  }
  const WideString digits = WideString(kLength - text.size(), u'0') + text;
  if (Part(digits, 0, 2) > 23 || Part(digits, 2, 2) > 59 || Part(digits, 4, 2) > 59) {
    return Refuse("there is no such time");
  }
  return Typed(property, digits);
}

WideString TextOf(const PropertyDescriptor& property, const GivenValue& given) {
  const bool isStoredAddress = given.kind == GivenKind::kStored && !given.text.empty() &&
                               values::TypeCodeOf(property.HeldType()) == values::TypeCode::kIpAddress &&
                               given.text.find(u'.') == WideString::npos;
  if (isStoredAddress) return values::DottedIpAddress(base::ToLong(given.text));
  return given.kind == GivenKind::kDefault ? WideString(property.Attributes().Get(TextId::kDefVal)) : given.text;
}

}  // namespace

bool CanBeEdited(const model::MenuItem& item, const ui::EditorTable& editors) {
  const PropertyDescriptor* property = item.Descriptor();
  if (property == nullptr || property->IsReadOnly() || !item.IsLeaf()) return false;
  if (item.Key() != nullptr && model::IsCommand(*item.Key())) return false;
  return ChooseEntryKind(editors.MakeRequest(*property)) != EntryKind::kNone;
}

Reading ReadAsEntered(const PropertyDescriptor& property, const ui::EditorTable& editors, const GivenValue& given) {
  const ui::EditRequest request = editors.MakeRequest(property);
  GivenValue value = given;
  value.text = TextOf(property, given);
  if (given.kind == GivenKind::kDefault && value.text.empty()) return Refuse("the configuration gives it no factory value");
  switch (ChooseEntryKind(request)) {
    case EntryKind::kNone: return Refuse("it has no editor in the menus");
    case EntryKind::kText:
    case EntryKind::kHex:
    case EntryKind::kHex32: return ReadText(property, request, std::move(value.text), false);
    case EntryKind::kNumber: return ReadText(property, request, std::move(value.text), true);
    case EntryKind::kChoices: return ReadChoice(property, value);
    case EntryKind::kTrueFalse: return request.choices.empty() ? ReadFlag(property, value) : ReadChoice(property, value);
    case EntryKind::kDate: return ReadDate(property, value.text);
    case EntryKind::kTime: return ReadTime(property, value.text);
    case EntryKind::kAddress: return ReadAddress(property, value.text);
  }
  return Refuse("it has no editor in the menus");
}

bool IsPresent(const PropertyDescriptor& property, const GivenValue& given, const Reading& reading) {
  const WideString present = property.GetValue().AsText();
  if (!reading.entered) {
    if (given.kind == GivenKind::kShown || given.kind == GivenKind::kSecret) return false;
    PropertyValue value;
    property.ParseValue(TextOf(property, given), value);
    return value.AsText() == present;
  }
  if (present == reading.entered->value.AsText()) return true;
  if (values::TypeCodeOf(property.HeldType()) != values::TypeCode::kHex) return false;
  // The device has a key as it was sent.
  for (const auto check : {values::CheckWepKey, values::CheckPreSharedKey}) {
    WideString key = reading.entered->text;
    WideString message;
    if (check(key, true, message) && key == present) return true;
  }
  return false;
}

}  // namespace settings
