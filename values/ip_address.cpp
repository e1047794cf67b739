#include "values/ip_address.h"

#include "base/format.h"
#include "base/number.h"

#include <algorithm>

namespace values {
namespace {

bool IsField(WideStringView text) {
  return !text.empty() && text.size() <= 3 && std::all_of(text.begin(), text.end(), base::IsDigit) &&
         base::ToLong(text) <= 255;
}

}  // namespace

std::int32_t IpAddressFromDotted(WideStringView text) {
  constexpr int kFieldCount = 4;

  std::uint32_t address = 0;
  for (int i = 0; i < kFieldCount; ++i) {
    const bool last = i == kFieldCount - 1;
    const std::size_t end = last ? text.size() : text.find(u'.');
    if (end == WideStringView::npos || !IsField(text.substr(0, end))) return kNoIpAddress;
    address = address << 8 | static_cast<std::uint32_t>(base::ToLong(text.substr(0, end)));
    text.remove_prefix(last ? end : end + 1);
  }
  return static_cast<std::int32_t>(address);
}

WideString DottedIpAddress(std::int32_t address) {
  const auto bits = static_cast<std::uint32_t>(address);
  return base::Format(u"%u.%u.%u.%u", bits >> 24, bits >> 16 & 0xFF, bits >> 8 & 0xFF, bits & 0xFF);
}

}  // namespace values
