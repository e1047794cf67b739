// What the ways to go over a text's blocks have in common: a mask has a bit for each byte or unit of a block that is an
// angle bracket.
#pragma once

#include "config/text_blocks.h"

#include <algorithm>
#include <bit>

namespace config {

// "<" and ">" are one number but for this bit.
inline constexpr char kBracketBit = '<' ^ '>';

// Adds the places of a mask's bits. They are taken eight at a time, as nearly all blocks have no more: what is too many
// is written over by the next block, and there is hardly a branch to be guessed wrong.
[[gnu::always_inline]] inline std::uint32_t* AddPlaces(std::uint64_t mask, std::uint32_t first, std::uint32_t* places) {
  std::uint32_t* const end = places + std::popcount(mask);
  do {
    for (int i = 0; i < 8; ++i) {
      *places++ = first + static_cast<std::uint32_t>(std::countr_zero(mask));
      mask &= mask - 1;
    }
  } while (mask != 0);
  return end;
}

// The same, of a text's last block, for as many units as there are.
[[gnu::always_inline]] inline std::uint64_t FirstBits(std::uint64_t mask, std::size_t length) {
  return length < kTextBlock ? mask & ((std::uint64_t{1} << length) - 1) : mask;
}

}  // namespace config
