// The loops that decide how soon UTF-8 is read, as the processor does them best.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace base {

struct Utf8Blocks {
  // A part of a text that was converted.
  struct Step {
    std::size_t bytes = 0;
    std::size_t units = 0;
  };

  // Fewer bytes are not read by blocks. They are read as a whole before anything is written, as both may lie in the
  // same memory; as more units are written than count, no block is one of the last.
  static constexpr std::size_t kLeast = 32;

  const char* name;  // of the instructions that it needs

  // Converts the beginning of kLeast bytes or more, as far as it can; there has to be room for a unit for each byte.
  Step (*convert)(std::string_view bytes, char16_t* out);
};

// Those that the processor can do, the best one first. In all of them the same comes out.
std::span<const Utf8Blocks* const> UsableUtf8Blocks();

// DecodeUtf8 by those.
char16_t* DecodeUtf8(std::string_view bytes, char16_t* out, const Utf8Blocks& blocks);

}  // namespace base
