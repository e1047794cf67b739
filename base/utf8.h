// UTF-8 at the program's border: files, the console, literals in tests.
#pragma once

#include "base/wide_string.h"

#include <string>
#include <string_view>

namespace base {

// Never fails: every byte that belongs to no well-formed sequence becomes U+FFFD.
WideString FromUtf8(std::string_view bytes);

// The same to where `out` points, with room for a unit for each byte; returns the end of what was written. The bytes
// may be the upper half of that room.
char16_t* DecodeUtf8(std::string_view bytes, char16_t* out);

// Never fails: a surrogate without its partner becomes U+FFFD.
std::string ToUtf8(WideStringView text);

}  // namespace base
