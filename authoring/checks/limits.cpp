// Checks of ranges, masks and lengths, and of defaults against them.
#include "authoring/checks/lists.h"

#include "authoring/checks/range_text.h"
#include "base/number.h"
#include "base/utf8.h"
#include "values/attributes.h"
#include "values/ip_address.h"
#include "values/key_rules.h"
#include "values/property_line_text.h"
#include "values/range.h"

#include <algorithm>

namespace authoring::checks {
namespace {

using values::TypeCode;

// The range, empty when there is none to be looked at.
WideStringView RangeOf(const Subject& subject) {
  const WideStringView range = subject.Resolved(Attribute::kRange);
  return range == values::kUnresolved ? WideStringView() : range;
}

bool HasChoices(const Subject& subject) {
  return subject.Has(Attribute::kChoiceFmt) && subject.ChoiceText() != values::kUnresolved;
}

bool IsTypedNumber(const Subject& subject) {
  return subject.Type() == TypeCode::kInteger && !HasChoices(subject) && !subject.Has(Attribute::kSubType);
}

bool IsDigits(WideStringView text) { return !text.empty() && std::all_of(text.begin(), text.end(), base::IsDigit); }

// A range without any number has been said to be one, and everything lies outside it.
bool HoldsNumbers(WideStringView range) {
  const auto parts = PartsOfRange(range);
  return std::any_of(parts.begin(), parts.end(), [](const RangePart& p) { return p.low <= p.high; });
}

// A name, an address or a key is the terminal's own; a setting of known values has one that it left the factory with.
bool IsOneOfFew(const Subject& subject) {
  if (subject.Has(Attribute::kCmdString)) return true;
  if (!subject.IsEditable()) return false;
  return HasChoices(subject) || !RangeOf(subject).empty() || subject.Type() == TypeCode::kBool;
}

// What restoring sends of it; nothing for a field.
WideStringView DefaultOf(const Subject& subject) {
  const bool isSent = subject.Has(Attribute::kOid) && !subject.Has(Attribute::kCmdString);
  return isSent ? subject.Get(Attribute::kDefVal) : WideStringView();
}

}  // namespace

void RangeMalformed(const Subject& subject, Findings& findings) {
  for (const RangePart& part : PartsOfRange(RangeOf(subject))) {
    if (part.wellFormed) continue;
    findings.Add(subject, Attribute::kRange,
                 "The part " + Quoted(part.text) + " of the Range is read as " + std::to_string(part.low) +
                     (part.low == part.high ? "" : " to " + std::to_string(part.high)) + ".",
                 "Write numbers, \"1,99\" or \"0,10-600\", without blanks.");
  }
}

void RangeReversed(const Subject& subject, Findings& findings) {
  if (!HoldsNumbers(RangeOf(subject))) return;
  for (const RangePart& part : PartsOfRange(RangeOf(subject))) {
    if (!part.wellFormed || part.low <= part.high) continue;
    findings.Add(subject, Attribute::kRange,
                 "The Range " + Quoted(part.text) + " goes from " + std::to_string(part.low) + " down to " +
                     std::to_string(part.high) + " and holds no number.",
                 "Write the lower number first.");
  }
}

void RangeEmpty(const Subject& subject, Findings& findings) {
  const WideStringView range = RangeOf(subject);
  if (range.empty() || HoldsNumbers(range)) return;
  findings.Add(subject, Attribute::kRange, "No number lies in the Range " + Quoted(range) + ": no value can be saved.",
               "Write the lower number first.");
}

void RangeBelowZero(const Subject& subject, Findings& findings) {
  if (!IsTypedNumber(subject)) return;
  for (const RangePart& part : PartsOfRange(RangeOf(subject))) {
    if (!part.wellFormed || part.low >= 0) continue;
    findings.Add(subject, Attribute::kRange,
                 "The numbers from " + std::to_string(part.low) +
                     " up to 0 cannot be entered: the field takes digits and no minus.",
                 "Begin at 0, or make them choices of an Octet String, such as -5#-5.");
    return;
  }
}

void RangeOnText(const Subject& subject, Findings& findings) {
  const auto type = subject.Type();
  if (!type || RangeOf(subject).empty() || *type == TypeCode::kInteger || *type == TypeCode::kBool) return;
  findings.Add(subject, Attribute::kRange,
               "The Range of " + Quoted(subject.Get(Attribute::kType)) +
                   " compares the number that the text begins with, 0 where there is none.",
               "Make the Type Integer, or limit the length by MaxChars.");
}

void MaskExcludesRange(const Subject& subject, Findings& findings) {
  const WideStringView range = RangeOf(subject);
  const std::size_t digits = subject.TypedLimit();
  if (range.empty() || digits == 0 || !IsTypedNumber(subject)) return;
  const bool byMask = subject.Has(Attribute::kTextFmt) && subject.Get(Attribute::kTextFmt).size() == digits;
  if (!byMask && !subject.Has(Attribute::kMaxChars)) return;
  std::int64_t highest = 0;
  for (const RangePart& part : PartsOfRange(range)) highest = std::max<std::int64_t>(highest, part.high);
  if (base::ToText(highest).size() <= digits) return;
  const Attribute limit = byMask ? Attribute::kTextFmt : Attribute::kMaxChars;
  findings.Add(subject, limit,
               base::ToUtf8(NameOf(limit)) + " lets " + std::to_string(digits) +
                   " digits be typed, so that the numbers of the Range up to " + std::to_string(highest) +
                   " cannot all be entered.",
               "Allow as many digits as " + std::to_string(highest) + " has.");
}

void DefaultOfField(const Subject& subject, Findings& findings) {
  if (subject.Has(Attribute::kOid) || !subject.Has(Attribute::kCmdOid) || !subject.Has(Attribute::kDefVal)) return;
  findings.Add(subject, Attribute::kDefVal, "The DefVal of a field is never sent: restoring sends its command's.",
               "Put the value into its columns of the command's DefVal.");
}

void DefaultNoProperty(const Subject& subject, Findings& findings) {
  if (subject.IsProperty()) return;
  findings.Add(subject, Attribute::kDefVal, "An entry without an OID has nothing that a DefVal could be restored to.",
               "Leave it out.");
}

void DefaultNotAValue(const Subject& subject, Findings& findings) {
  const WideStringView text = DefaultOf(subject);
  if (text.empty()) return;
  const auto type = subject.Type();
  const bool isNumber = type == TypeCode::kInteger || type == TypeCode::kBool;
  if (isNumber && !HasChoices(subject) && !IsDigits(text)) {
    findings.Add(subject, Attribute::kDefVal,
                 "The DefVal " + Quoted(text) + " is no number; restoring sends it as it stands.", "Write a number.");
  } else if (isNumber && !IsDateOrTime(subject, text)) {
    findings.Add(subject, Attribute::kDefVal,
                 "The DefVal " + Quoted(text) + " is no " + base::ToUtf8(subject.Get(Attribute::kSubType)) +
                     ": the editor opens with another one.",
                 "Write a date like 20240315, or a time like 93000.");
  } else if (type == TypeCode::kBool && !HasChoices(subject) && text != u"0" && text != u"1") {
    findings.Add(subject, Attribute::kDefVal, "A Bool is 1 or 0; restoring sends " + Quoted(text) + ".",
                 "Write 1 or 0.");
  } else if (type == TypeCode::kIpAddress && values::IpAddressFromDotted(text) == values::kNoIpAddress &&
             text != u"255.255.255.255") {
    findings.Add(subject, Attribute::kDefVal,
                 "The DefVal " + Quoted(text) + " is no address; restoring sends 255.255.255.255.",
                 "Write four numbers from 0 to 255 with dots between.");
  } else if (type == TypeCode::kHex) {
    WideString key(text);
    WideString message;
    const bool isShared = subject.Get(Attribute::kType) == LoadText(TextId::kHex32) && subject.Has(Attribute::kWep);
    const bool isGood =
        isShared ? values::CheckPreSharedKey(key, true, message) : values::CheckWepKey(key, true, message);
    if (isGood) return;
    findings.Add(subject, Attribute::kDefVal, "Restoring refuses the DefVal: \"" + base::ToUtf8(message) + "\"",
                 isShared ? "Write 8 to 63 characters, or 0x and 64 digits."
                          : "Write 5 or 13 characters, or 0x and 10 or 26 digits.");
  }
}

void DefaultNotAChoice(const Subject& subject, Findings& findings) {
  const WideStringView text = DefaultOf(subject);
  if (text.empty() || !subject.HasChoiceList() || subject.IsChoice(text)) return;
  findings.Add(subject, Attribute::kDefVal,
               "The DefVal " + Quoted(text) + " is none of the choices; the line then shows it as it is.",
               "Write the key of a choice.");
}

void DefaultOutOfRange(const Subject& subject, Findings& findings) {
  const WideStringView text = DefaultOf(subject);
  const WideStringView range = RangeOf(subject);
  if (text.empty() || !HoldsNumbers(range) || values::InRange(base::ToLong(text), range)) return;
  findings.Add(subject, Attribute::kDefVal,
               "The DefVal " + Quoted(text) + " lies outside the Range " + Quoted(range) +
                   ": restoring sends what nobody could save.",
               "Write a number of the Range.");
}

void DefaultTooLong(const Subject& subject, Findings& findings) {
  const WideStringView text = DefaultOf(subject);
  const std::size_t most = subject.TypedLimit();
  if (text.size() <= most || most == 0 || HasChoices(subject) || !subject.IsEditable()) return;
  const auto type = subject.Type();
  if (type == TypeCode::kIpAddress || type == TypeCode::kBool || subject.Has(Attribute::kSubType)) return;
  if (const WideStringView range = RangeOf(subject); !range.empty() && !HoldsNumbers(range)) return;
  findings.Add(subject, Attribute::kDefVal,
               "The DefVal has " + std::to_string(text.size()) + " characters, of which only " + std::to_string(most) +
                   " can be typed.",
               "Shorten it, or raise MaxChars and TextFmt.");
}

void DefaultMissing(const Survey& survey, Findings& findings) {
  const auto& subjects = survey.Subjects();
  const bool restores = std::any_of(subjects.begin(), subjects.end(), [](const Subject& subject) {
    return subject.Get(Attribute::kFunction) == LoadText(TextId::kRestoreDefaults);
  });
  if (!restores) return;
  for (const Subject& subject : subjects) {
    if (!subject.Has(Attribute::kOid) || subject.Has(Attribute::kDefVal) || subject.IsField()) continue;
    if (!IsOneOfFew(subject)) continue;
    const DeviceEntry* value = subject.OnDevice();
    // Nobody can set what the device refuses.
    if (value != nullptr && (value->line.options.readOnly || value->line.options.set)) continue;
    findings.Add(subject, "It has no DefVal: restoring the defaults leaves it as it is.", "Give it a DefVal.");
  }
}

}  // namespace authoring::checks
