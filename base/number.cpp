#include "base/number.h"

#include <limits>

namespace base {
namespace {

bool IsSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

}  // namespace

std::int32_t ToLong(WideStringView text) { return FindLong(text).value_or(0); }

std::optional<std::int32_t> FindLong(WideStringView text) {
  std::size_t at = 0;
  while (at < text.size() && IsSpace(text[at])) ++at;
  bool negative = false;
  if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) negative = text[at++] == u'-';

  if (at == text.size() || !IsDigit(text[at])) return std::nullopt;

  constexpr std::int64_t kMaximum = std::numeric_limits<std::int32_t>::max();
  const std::int64_t limit = negative ? kMaximum + 1 : kMaximum;
  std::int64_t number = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    number = number * 10 + (text[at] - u'0');
    if (number > limit) number = limit;
  }
  return static_cast<std::int32_t>(negative ? -number : number);
}

WideString ToText(std::int64_t number) {
  const bool negative = number < 0;
  auto magnitude = negative ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
  WideString reversed;
  do {
    reversed.push_back(static_cast<char16_t>(u'0' + magnitude % 10));
    magnitude /= 10;
  } while (magnitude != 0);
  if (negative) reversed.push_back(u'-');
  return {reversed.rbegin(), reversed.rend()};
}

}  // namespace base
