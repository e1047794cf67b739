// IPv4 addresses are held as numbers whose most significant byte is the first field.
#pragma once

#include "base/wide_string.h"

#include <cstdint>

namespace values {

// What a malformed address reads as: all ones.
inline constexpr std::int32_t kNoIpAddress = -1;

// Four decimal fields of one to three digits, none above 255. Anything else is kNoIpAddress.
std::int32_t IpAddressFromDotted(WideStringView text);

WideString DottedIpAddress(std::int32_t address);

}  // namespace values
