// UTF-8 at the program's border: files, the console, literals in tests.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

// Never fails: every byte that belongs to no well-formed sequence becomes U+FFFD.
WideString FromUtf8(std::string_view bytes);

// The same to where `out` points, with room for a unit for each byte; returns the end of what was written. The bytes
// may be the upper half of that room.
char16_t* DecodeUtf8(std::string_view bytes, char16_t* out);

// The first `size` bytes of a text, or up to three fewer, so that no well-formed sequence is cut in two.
std::string_view Utf8Prefix(std::string_view bytes, std::size_t size);

// Never fails: a surrogate without its partner becomes U+FFFD.
std::string ToUtf8(WideStringView text);

}  // namespace base
