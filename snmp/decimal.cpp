#include "snmp/decimal.h"

#include <charconv>
#include <system_error>

namespace snmp {

std::optional<std::int64_t> ParseDecimal(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return std::to_string(number) == text ? std::optional(number) : std::nullopt;
}

}  // namespace snmp
