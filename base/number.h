// Numbers in texts.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <optional>

namespace base {

// Reads white space, an optional sign and decimal digits, stops at the first other character and saturates at the
// ends of 32 bits. A text that holds no number gives 0.
std::int32_t ToLong(WideStringView text);

// As ToLong, but nothing for a text that holds no number.
std::optional<std::int32_t> FindLong(WideStringView text);

// The decimal text of a number.
WideString ToText(std::int64_t number);

}  // namespace base
