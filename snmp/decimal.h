// Numbers as they are printed, and in no other way.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace snmp {

// Nothing unless `text` is what the number prints as: no blank, no plus, no leading zero.
std::optional<std::int64_t> ParseDecimal(std::string_view text);

}  // namespace snmp
