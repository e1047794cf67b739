// Tests on many units at once: what is a loop over units elsewhere is here a number with one bit for each unit, found
// without a branch. The vectors are those that GCC and Clang both have for all processors.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace config {

using UnitVector [[gnu::vector_size(16)]] = std::int16_t;

constexpr UnitVector SpreadUnit(char16_t unit) {
  const auto n = static_cast<std::int16_t>(unit);
  return UnitVector{n, n, n, n, n, n, n, n};
}

inline UnitVector LoadUnits(const char16_t* units) {
  UnitVector vector;
  std::memcpy(&vector, units, sizeof(vector));
  return vector;
}

// Bit i tells whether place i of the two vectors, one behind the other, holds -1; all others hold 0.
inline std::uint64_t MaskOf(UnitVector first, UnitVector second) {
  constexpr UnitVector kLow = {1, 2, 4, 8, 16, 32, 64, 128};
  constexpr UnitVector kHigh = {0x100, 0x200, 0x400, 0x800, 0x1000, 0x2000, 0x4000, -0x8000};
  const UnitVector bits = (first & kLow) | (second & kHigh);
  std::uint64_t halves[2];
  std::memcpy(halves, &bits, sizeof(halves));
  // No bit is there twice, so the product adds up the four numbers of 16 bits in its highest one.
  return ((halves[0] | halves[1]) * 0x0001000100010001) >> 48;
}

// Bit i tells whether test(vector) holds for units[i], of 16 units.
template <typename Test>
inline std::uint64_t UnitMask16(const char16_t* units, Test test) {
  return MaskOf(test(LoadUnits(units)), test(LoadUnits(units + 8)));
}

}  // namespace config
