// The loops that decide how soon a document is read, as the processor does them best: both go over a text by blocks of
// 64 and write down where its angle brackets are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace config {

inline constexpr std::size_t kTextBlock = 64;

struct TextBlocks {
  // How many blocks were gone over, and the end of the places.
  struct Result {
    std::size_t count;
    std::uint32_t* places;
  };

  const char* name;  // of the instructions that it needs

  // Makes units[first] and those behind it of the blocks of ASCII that `bytes` begins with, of `count` blocks. The
  // bytes may lie in the same memory, if only behind the units that are made of them.
  Result (*widen)(const char* bytes, std::size_t count, char16_t* units, std::uint32_t first, std::uint32_t* places);

  // Looks at `length` units from units[first] on; so many more can be read as fill the last block.
  std::uint32_t* (*mark)(const char16_t* units, std::size_t length, std::uint32_t first, std::uint32_t* places);

  // Both add to `places` the index of each "<" and ">". There has to be room for kPlacesOver more than there are units.
  static constexpr std::size_t kPlacesOver = 8;
};

// In all of them the same comes out. Which are there is known when the program is compiled.
extern const TextBlocks kPlainTextBlocks;
#ifdef __SSE2__
extern const TextBlocks kSse2TextBlocks;
// GCC for Windows keeps vectors of 32 bytes on a stack that is aligned to 16.
#ifndef __MINGW32__
#define KEL_TEXT_BLOCKS_AVX2
extern const TextBlocks kAvx2TextBlocks;
#endif
#endif

// Those that the processor can do, the best one first.
std::span<const TextBlocks* const> UsableTextBlocks();

}  // namespace config
