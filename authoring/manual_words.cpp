#include "authoring/manual_words.h"

#include "authoring/rule_words.h"
#include "authoring/secrets.h"
#include "base/number.h"
#include "base/utf8.h"
#include "values/value_types.h"

#include <algorithm>
#include <vector>

namespace authoring {
namespace {

using values::PropertyDescriptor;
using values::TypeCode;

std::string TypeInWords(WideStringView type) {
  switch (values::TypeCodeOf(type).value_or(TypeCode::kNone)) {
    case TypeCode::kInteger: return "a number";
    case TypeCode::kBool: return "TRUE or FALSE";
    case TypeCode::kOctetString: return "a text";
    case TypeCode::kIpAddress: return "a network address of four numbers";
    case TypeCode::kPassword: return "a password; it is shown as stars";
    case TypeCode::kHex: return "a key; it is never shown";
    case TypeCode::kReaderCmd: return "several settings, edited one by one";
    default: return {};
  }
}

// "20240315" as 2024-03-15, "93000" as 09:30:00: a first part, then pairs.
std::string WithSeparators(WideStringView digits, std::size_t count, char separator, std::size_t first) {
  std::string text = base::ToUtf8(digits);
  if (text.size() > count || !std::all_of(digits.begin(), digits.end(), base::IsDigit)) return text;
  text.insert(0, count - text.size(), '0');
  for (std::size_t at = first; at < text.size(); at += 3) text.insert(at, 1, separator);
  return text;
}

}  // namespace

std::string KindInWords(const PropertyDescriptor& property) {
  const WideStringView subType = property.Attributes().Get(TextId::kSubType);
  std::string kind =
      property.Choices().Count() > 0 ? "one of several choices" : TypeInWords(property.Attributes().Get(TextId::kType));
  if (base::EqualsIgnoringCase(subType, u"Date")) kind = "a date";
  if (base::EqualsIgnoringCase(subType, u"Time")) kind = "a time of day";
  if (property.Attributes().Has(TextId::kSecurity)) kind += kind.empty() ? "to be read only" : ", to be read only";
  return kind;
}

std::string RangeInWords(WideStringView range) {
  std::vector<std::string> parts;
  bool hasSpan = false;
  while (!range.empty()) {
    const std::size_t comma = range.find(u',');
    const WideStringView part = range.substr(0, comma);
    const std::size_t dash = part.rfind(u'-');
    const bool isSpan = dash != WideStringView::npos && dash != 0;
    hasSpan = hasSpan || isSpan;
    parts.push_back(isSpan ? "from " + base::ToUtf8(part.substr(0, dash)) + " to " + base::ToUtf8(part.substr(dash + 1))
                           : base::ToUtf8(part));
    range = comma == WideStringView::npos ? WideStringView() : range.substr(comma + 1);
  }
  if (parts.size() == 2 && !hasSpan) return "from " + parts[0] + " to " + parts[1];
  std::string words;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    words += (i == 0 ? "" : i + 1 == parts.size() ? " or " : ", ") + parts[i];
  }
  return words;
}

std::string FunctionInWords(WideStringView function) {
  static const struct {
    WideStringView function;
    const char* words;
  } kFunctions[] = {
      {u"Summary", "Shows all settings as a text."},
      {u"StoreConfig", "Writes all settings to the file \\CfgSettings.txt."},
      {u"RestoreDefaults", "Asks, and then sets the settings back to their factory values."},
      {u"ApplyNetworkSettings", "Lets the network settings take effect."},
      {u"WEP_Properties", "Lets the radio take over its key settings."},
      {u"ImportCertificates", "Imports certificates."},
  };
  const auto* found = std::find_if(std::begin(kFunctions), std::end(kFunctions),
                                   [function](const auto& known) { return known.function == function; });
  return found == std::end(kFunctions) ? "" : found->words;
}

std::string FactoryValueInWords(const Trial& trial, const PropertyDescriptor& property, const config::ConfigKey& key) {
  if (IsSecret(property) || property.CommandLayout() != nullptr) return {};
  WideString value(key.Value(TextId::kDefVal));
  WideString oid(key.Value(TextId::kOid));
  if (const auto field = property.GetCommandField()) {
    const PropertyDescriptor* command = trial.Model().FindDescriptor(field->commandOid);
    const values::FieldWidthList* layout = command == nullptr ? nullptr : command->CommandLayout();
    if (layout == nullptr) return {};
    value = layout->Field(command->Attributes().Get(TextId::kDefVal), field->index).value_or(WideString());
    oid = key.Value(TextId::kCmdOid);
  }
  if (value.empty()) return {};
  const WideStringView subType = property.Attributes().Get(TextId::kSubType);
  if (base::EqualsIgnoringCase(subType, u"Date")) return WithSeparators(value, 8, '-', 4);
  if (base::EqualsIgnoringCase(subType, u"Time")) return WithSeparators(value, 6, ':', 2);
  const bool isNumber =
      values::TypeCodeOf(property.HeldType()) == TypeCode::kInteger && property.Choices().Count() == 0;
  if (isNumber && base::FindLong(value))
    return base::ToUtf8(base::ToText(base::ToLong(value)));  // a column has zeros in front
  std::string words = ValueInWords(trial, oid, value);
  return words.size() > 1 && words.front() == '"' ? words.substr(1, words.size() - 2) : words;
}

}  // namespace authoring
