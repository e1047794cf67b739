// Checks of the device's values against the configuration.
#include "authoring/checks/lists.h"

#include "authoring/checks/range_text.h"
#include "base/number.h"
#include "base/utf8.h"
#include "values/attributes.h"
#include "values/device_access.h"
#include "values/ip_address.h"
#include "values/range.h"

#include <algorithm>

namespace authoring::checks {
namespace {

// Null for what the device is never asked for, and where nothing is known about it.
bool IsAsked(const Subject& subject) {
  const bool hasOwnOid = subject.Has(Attribute::kOid) && !subject.Has(Attribute::kCmdOid);
  return hasOwnOid && !values::IsPseudoOid(subject.Get(Attribute::kOid)) && subject.All().Source().Terminal().hasDevice;
}

// The value as the device has it, of a field its column; null: there is none.
std::optional<WideString> ValueOf(const Subject& subject) {
  const Survey& survey = subject.All();
  if (!subject.IsField()) {
    if (!IsAsked(subject)) return std::nullopt;
    const WideString* text = Survey::TextOf(subject.OnDevice());
    return text == nullptr ? std::nullopt : std::optional<WideString>(*text);
  }
  const WideStringView oid = subject.Get(Attribute::kCmdOid);
  const std::size_t colon = oid.find(u':');
  const auto commands = survey.WithOid(oid.substr(0, colon));
  if (commands.empty() || colon == WideStringView::npos || commands.back()->Layout() == nullptr) return std::nullopt;
  const WideString* record = Survey::TextOf(commands.back()->OnDevice());
  if (record == nullptr) return std::nullopt;
  return commands.back()->Layout()->Field(*record, base::ToLong(oid.substr(colon + 1)) - 1);
}

Attribute OidAttribute(const Subject& subject) { return subject.IsField() ? Attribute::kCmdOid : Attribute::kOid; }

std::string InFile(const Subject& subject) {
  const DeviceEntry* entry = subject.IsField() ? nullptr : subject.OnDevice();
  return entry == nullptr ? "" : " (device.txt, line " + std::to_string(entry->number) + ")";
}

// Values of these properties are never said aloud.
std::string Said(const Subject& subject, WideStringView value) {
  const bool isSecret = subject.Has(Attribute::kWep) || subject.Has(Attribute::kPassWordChar) ||
                        subject.Type() == values::TypeCode::kPassword || subject.Type() == values::TypeCode::kHex;
  return isSecret ? "" : " " + Quoted(value);
}

}  // namespace

void DeviceValueMissing(const Subject& subject, Findings& findings) {
  if (!IsAsked(subject) || subject.Get(Attribute::kFunction) == u"ImportCertificates") return;
  if (subject.OnDevice() != nullptr) return;
  findings.Add(subject, Attribute::kOid,
               "The device has no " + Quoted(subject.All().DeviceOid(subject)) +
                   ": the line shows \"Unavailable\" and cannot be edited.",
               "Give device.txt a line for it.");
}

void ProfileValueMissing(const Subject& subject, Findings& findings) {
  const Survey& survey = subject.All();
  if (!IsAsked(subject) || subject.Resolved(Attribute::kFillOid) != u"Profile") return;
  const WideStringView oid = subject.Get(Attribute::kOid);
  const std::size_t star = oid.find(u'*');
  const auto profiles = survey.WithOid(kActiveProfile);
  if (star == WideStringView::npos || profiles.empty() || !profiles.back()->HasChoiceList()) return;
  const WideString* active = survey.DeviceText(kActiveProfile);
  for (const auto& profile : profiles.back()->Choices().Entries()) {
    WideString filled(oid);
    filled.replace(star, 1, profile.key);
    if ((active != nullptr && profile.key == *active) || survey.Source().Terminal().device.contains(filled)) continue;
    findings.Add(subject, Attribute::kOid,
                 "The device has no " + Quoted(filled) + ": once the profile " + Quoted(profile.text) +
                     " is chosen, there is no such property.",
                 "Give device.txt a line for it, or take the profile out of the choices.");
  }
}

void DeviceTypeDiffers(const Subject& subject, Findings& findings) {
  const WideStringView type = subject.Get(Attribute::kType);
  // A type that there is not is a slip by itself.
  if (!IsAsked(subject) || !IsTypeName(type)) return;
  const DeviceEntry* entry = subject.OnDevice();
  if (entry == nullptr || entry->line.type == type) return;
  findings.Add(subject, Attribute::kType,
               "The device's value is of the type " + Quoted(entry->line.type) + InFile(subject) +
                   " and is asked for as " + Quoted(type) + ".",
               "Make both the same.");
}

void DeviceValueNoChoice(const Subject& subject, Findings& findings) {
  if (!subject.HasChoiceList()) return;
  const auto value = ValueOf(subject);
  if (!value || value->empty() || subject.IsChoice(*value)) return;
  findings.Add(subject, OidAttribute(subject),
               "The device's value" + Said(subject, *value) + InFile(subject) +
                   " is none of the choices: the line shows it as it is.",
               "Add the choice, or change the value.");
}

void DeviceValueOutOfRange(const Subject& subject, Findings& findings) {
  const WideStringView range = subject.Resolved(Attribute::kRange);
  const auto value = ValueOf(subject);
  const auto parts = PartsOfRange(range);
  const bool isEmpty = std::none_of(parts.begin(), parts.end(), [](const RangePart& p) { return p.low <= p.high; });
  if (range == values::kUnresolved || isEmpty || !value || value->empty() ||
      values::InRange(base::ToLong(*value), range))
    return;
  findings.Add(
      subject, OidAttribute(subject),
      "The device's value" + Said(subject, *value) + InFile(subject) + " lies outside the Range " + Quoted(range) + ".",
      "Widen the Range, or change the value.");
}

void DeviceValueNoValue(const Subject& subject, Findings& findings) {
  const auto value = ValueOf(subject);
  if (!value || value->empty() || subject.Has(Attribute::kChoiceFmt)) return;
  const auto type = subject.Type();
  const bool isNumber = type == values::TypeCode::kInteger || type == values::TypeCode::kBool;
  const bool isDigits = std::all_of(value->begin(), value->end(), base::IsDigit);
  const bool isAddress = values::IpAddressFromDotted(*value) != values::kNoIpAddress || *value == u"255.255.255.255";
  if (isNumber && !isDigits) {
    findings.Add(subject, OidAttribute(subject),
                 "The device's value" + Said(subject, *value) + InFile(subject) + " is no number.",
                 "Change the value, or the Type.");
  } else if (isNumber && !IsDateOrTime(subject, *value)) {
    findings.Add(subject, OidAttribute(subject),
                 "The device's value" + Said(subject, *value) + InFile(subject) + " is no " +
                     base::ToUtf8(subject.Get(Attribute::kSubType)) + ": the editor opens with another one.",
                 "Write a date like 20240315, or a time like 93000.");
  } else if (type == values::TypeCode::kIpAddress && !isAddress) {
    findings.Add(subject, OidAttribute(subject),
                 "The device's value" + Said(subject, *value) + InFile(subject) +
                     " is no address: the line shows 255.255.255.255.",
                 "Change the value, or the Type.");
  }
}

void DeviceValueTooLong(const Subject& subject, Findings& findings) {
  const std::int32_t most = base::ToLong(subject.Get(Attribute::kMaxChars));
  const auto value = ValueOf(subject);
  if (most <= 0 || !value || value->size() <= static_cast<std::size_t>(most)) return;
  // A key comes back from the device in the device's own form.
  if (subject.Type() == values::TypeCode::kHex || subject.Has(Attribute::kChoiceFmt)) return;
  findings.Add(subject, OidAttribute(subject),
               "The device's value" + InFile(subject) + " has " + std::to_string(value->size()) +
                   " characters and MaxChars is " + std::to_string(most) + ".",
               "Raise MaxChars, or shorten the value.");
}

}  // namespace authoring::checks
