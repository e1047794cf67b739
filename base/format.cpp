#include "base/format.h"

#include "base/number.h"

#include <algorithm>
#include <optional>

namespace base {
namespace {

// A width or precision beyond this comes from a broken format, not from a wish.
constexpr std::size_t kWidestField = 4096;

struct Conversion {
  bool leftAlign = false, zeroPad = false, plus = false, blank = false, alternate = false;
  std::size_t width = 0;
  std::optional<std::size_t> precision;
  char16_t type = 0;
};

std::size_t ReadCount(WideStringView format, std::size_t& at) {
  std::size_t count = 0;
  for (; at < format.size() && IsDigit(format[at]); ++at) {
    count = std::min(kWidestField, count * 10 + static_cast<std::size_t>(format[at] - u'0'));
  }
  return count;
}

bool ReadFlag(char16_t unit, Conversion& conversion) {
  switch (unit) {
    case u'-': return conversion.leftAlign = true;
    case u'0': return conversion.zeroPad = true;
    case u'+': return conversion.plus = true;
    case u' ': return conversion.blank = true;
    case u'#': return conversion.alternate = true;
    default: return false;
  }
}

// Reads what follows a "%"; `at` ends behind the conversion character.
Conversion ReadConversion(WideStringView format, std::size_t& at) {
  Conversion conversion;
  while (at < format.size() && ReadFlag(format[at], conversion)) ++at;
  conversion.width = ReadCount(format, at);
  if (at < format.size() && format[at] == u'.') conversion.precision = ReadCount(format, ++at);
  while (at < format.size() && (format[at] == u'l' || format[at] == u'h')) ++at;
  if (at < format.size()) conversion.type = format[at++];
  return conversion;
}

WideString Digits(std::uint64_t number, unsigned radix, bool upperCase) {
  WideString reversed;
  for (; number != 0; number /= radix) {
    const char16_t* digits = upperCase ? u"0123456789ABCDEF" : u"0123456789abcdef";
    reversed.push_back(digits[number % radix]);
  }
  return {reversed.rbegin(), reversed.rend()};
}

WideString Pad(WideString text, const Conversion& conversion) {
  if (text.size() >= conversion.width) return text;
  const std::size_t missing = conversion.width - text.size();
  return conversion.leftAlign ? text + WideString(missing, u' ') : WideString(missing, u' ') + text;
}

WideString FormatNumber(const Conversion& conversion, const FormatArgument& argument) {
  const bool isSigned = conversion.type == u'd' || conversion.type == u'i';
  const bool isHex = conversion.type == u'x' || conversion.type == u'X';
  const bool negative = isSigned && argument.Signed() < 0;
  const std::uint64_t magnitude =
      negative ? 0 - static_cast<std::uint64_t>(argument.Signed())
               : (isSigned ? static_cast<std::uint64_t>(argument.Signed()) : argument.Unsigned());
  WideString digits = Digits(magnitude, isHex ? 16 : 10, conversion.type == u'X');

  WideString prefix;
  if (negative)
    prefix = u"-";
  else if (isSigned && conversion.plus)
    prefix = u"+";
  else if (isSigned && conversion.blank)
    prefix = u" ";
  else if (isHex && conversion.alternate && magnitude != 0)
    prefix = conversion.type == u'x' ? u"0x" : u"0X";

  std::size_t digitCount = conversion.precision.value_or(1);
  if (conversion.zeroPad && !conversion.leftAlign && !conversion.precision && conversion.width > prefix.size()) {
    digitCount = conversion.width - prefix.size();
  }
  if (digits.size() < digitCount) digits.insert(0, digitCount - digits.size(), u'0');
  return Pad(prefix + digits, conversion);
}

WideString FormatText(const Conversion& conversion, WideStringView text) {
  return Pad(WideString(text.substr(0, conversion.precision.value_or(WideStringView::npos))), conversion);
}

WideString FormatOne(const Conversion& conversion, const FormatArgument& argument) {
  if (conversion.type == u's' || argument.IsText()) {
    return FormatText(conversion, argument.IsText() ? WideString(argument.Text()) : ToText(argument.Signed()));
  }
  if (conversion.type == u'c') {
    return FormatText(conversion, WideString(1, static_cast<char16_t>(argument.Signed())));
  }
  return FormatNumber(conversion, argument);
}

}  // namespace

std::uint64_t FormatArgument::Unsigned() const {
  const auto number = static_cast<std::uint64_t>(number_);
  return bits_ >= 64 ? number : number & ((std::uint64_t{1} << bits_) - 1);
}

WideString FormatArguments(WideStringView format, std::span<const FormatArgument> arguments) {
  constexpr WideStringView kConversions = u"sdiucxX";
  WideString text;
  std::size_t nextArgument = 0;
  std::size_t at = 0;
  while (at < format.size()) {
    const std::size_t percent = std::min(format.find(u'%', at), format.size());
    text += format.substr(at, percent - at);
    if (percent == format.size()) break;
    at = percent + 1;
    const Conversion conversion = ReadConversion(format, at);
    if (conversion.type == u'%') {
      text += u'%';
    } else if (conversion.type == 0 || kConversions.find(conversion.type) == WideStringView::npos) {
      text += format.substr(percent, at - percent);
    } else if (nextArgument < arguments.size()) {
      text += FormatOne(conversion, arguments[nextArgument++]);
    }
  }
  return text;
}

}  // namespace base
