#include "snmp/value_codec.h"

#include "base/utf8.h"
#include "snmp/decimal.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace snmp {
namespace {

const struct TypeRow {
  WideStringView name;
  ValueType travelsAs;
  bool isSecret = false;
} kTypes[] = {
    {u"Integer", ValueType::kInteger},      {u"Bool", ValueType::kInteger},
    {u"IP Address", ValueType::kIpAddress}, {u"Counter", ValueType::kCounter32},
    {u"Gauge", ValueType::kGauge32},        {u"Time Ticks", ValueType::kTimeTicks},
    {u"Opaque", ValueType::kOpaque},        {u"Password", ValueType::kOctets, true},
    {u"Hex", ValueType::kOctets, true},     {u"Hex32", ValueType::kOctets, true},
};
const TypeRow kText = {u"", ValueType::kOctets};

const TypeRow& RowOf(WideStringView type) {
  const auto found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                  [type](const TypeRow& row) { return base::EqualsIgnoringCase(row.name, type); });
  return found == std::end(kTypes) ? kText : *found;
}

bool IsUnsigned(ValueType type) {
  return type == ValueType::kCounter32 || type == ValueType::kGauge32 || type == ValueType::kTimeTicks;
}

bool Fits(std::int64_t number, ValueType type) {
  if (IsUnsigned(type)) return number >= 0 && number <= std::numeric_limits<std::uint32_t>::max();
  return number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max();
}

constexpr std::size_t kAddressLength = 4;

// The four octets; none when it is not an address as it is printed.
std::string OctetsOfAddress(std::string_view text) {
  std::string octets;
  while (octets.size() < kAddressLength) {
    const std::size_t end = std::min(text.find('.'), text.size());
    const auto number = ParseDecimal(text.substr(0, end));
    if (!number || *number < 0 || *number > 255) return {};
    octets.push_back(static_cast<char>(*number));
    const bool isLast = octets.size() == kAddressLength;
    if (isLast != (end == text.size())) return {};
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return octets;
}

std::string TextOfAddress(std::string_view octets) {
  std::string text;
  for (const char octet : octets) {
    if (!text.empty()) text.push_back('.');
    text += std::to_string(static_cast<unsigned char>(octet));
  }
  return text;
}

// A whole number with or without a sign, whatever zeros it begins with.
std::optional<std::int64_t> NumberIn(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t first = text.find_first_not_of('0');
  const bool isZero = first == std::string_view::npos && !text.empty();
  if (first != std::string_view::npos) text.remove_prefix(first);
  const auto number = isZero ? 0 : ParseDecimal(text);
  if (!number || *number < 0) return std::nullopt;
  return isNegative ? -*number : *number;
}

}  // namespace

ValueType TravelsAs(WideStringView type) { return RowOf(type).travelsAs; }

Value ValueOf(WideStringView type, WideStringView text) {
  const ValueType travelsAs = RowOf(type).travelsAs;
  std::string bytes = base::ToUtf8(text);
  if (travelsAs == ValueType::kIpAddress) {
    std::string octets = OctetsOfAddress(bytes);
    if (!octets.empty()) return {travelsAs, 0, std::move(octets)};
  } else if (travelsAs == ValueType::kInteger || IsUnsigned(travelsAs)) {
    const auto number = ParseDecimal(bytes);
    if (number && Fits(*number, travelsAs)) return {travelsAs, *number, {}};
  } else {
    return {travelsAs, 0, std::move(bytes)};
  }
  return {ValueType::kOctets, 0, std::move(bytes)};
}

ErrorStatus TextOf(const Value& value, WideStringView type, WideStringView current, WideString& text) {
  const ValueType travelsAs = RowOf(type).travelsAs;
  if (IsWrittenByTheDeviceAlone(travelsAs)) return ErrorStatus::kNotWritable;
  if (value.type != travelsAs && value.type != ValueOf(type, current).type) return ErrorStatus::kWrongType;
  std::string bytes = value.bytes;
  if (value.type == ValueType::kIpAddress) {
    if (bytes.size() != kAddressLength) return ErrorStatus::kWrongLength;
    bytes = TextOfAddress(bytes);
  } else if (value.type == ValueType::kInteger || value.type == ValueType::kGauge32) {
    const bool isBool = base::EqualsIgnoringCase(type, u"Bool");
    if (!Fits(value.number, value.type) || (isBool && value.number != 0 && value.number != 1)) {
      return ErrorStatus::kWrongValue;
    }
    bytes = std::to_string(value.number);
  }
  WideString taken = base::FromUtf8(bytes);
  // Octets that are no text could not be given back.
  if (base::ToUtf8(taken) != bytes) return ErrorStatus::kWrongValue;
  text = std::move(taken);
  return ErrorStatus::kNoError;
}

std::optional<WideString> ReceivedText(const Value& value) {
  switch (value.type) {
    case ValueType::kInteger:
    case ValueType::kCounter32:
    case ValueType::kGauge32:
    case ValueType::kTimeTicks: return base::FromUtf8(std::to_string(value.number));
    case ValueType::kCounter64: return base::FromUtf8(std::to_string(static_cast<std::uint64_t>(value.number)));
    case ValueType::kIpAddress: return base::FromUtf8(TextOfAddress(value.bytes));
    case ValueType::kOctets:
    case ValueType::kOpaque:
    case ValueType::kObjectId: return base::FromUtf8(value.bytes);
    default: return std::nullopt;
  }
}

bool IsDamagedText(const Value& value) {
  const bool isText = value.type == ValueType::kOctets || value.type == ValueType::kOpaque;
  return isText && base::ToUtf8(base::FromUtf8(value.bytes)) != value.bytes;
}

bool IsWrittenByTheDeviceAlone(ValueType type) {
  return type == ValueType::kCounter32 || type == ValueType::kTimeTicks || type == ValueType::kCounter64 ||
         type == ValueType::kObjectId;
}

std::optional<Value> ValueToSend(ValueType type, WideStringView text) {
  std::string bytes = base::ToUtf8(text);
  switch (type) {
    case ValueType::kInteger:
    case ValueType::kGauge32: {
      const auto number = NumberIn(bytes);
      if (!number || !Fits(*number, type)) return std::nullopt;
      return Value{type, *number, {}};
    }
    case ValueType::kIpAddress: {
      std::string octets = OctetsOfAddress(bytes);
      if (octets.empty()) return std::nullopt;
      return Value{type, 0, std::move(octets)};
    }
    case ValueType::kOctets:
    case ValueType::kOpaque: return Value{type, 0, std::move(bytes)};
    default: return std::nullopt;
  }
}

bool IsSecret(WideStringView type) { return RowOf(type).isSecret; }

}  // namespace snmp
