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

// Bit i tells whether test(vector) holds for units[i], of 16 units or 64.
template <typename Test>
inline std::uint64_t UnitMask16(const char16_t* units, Test test) {
  return MaskOf(test(LoadUnits(units)), test(LoadUnits(units + 8)));
}

// The eight vectors are laid over one another, each with a bit of its own in every place, which gives the mask in
// another order: the number of a bit's place in the mask has its six binary digits exchanged, as three pairs of them.
template <typename Test>
inline std::uint64_t UnitMask64(const char16_t* units, Test test) {
  const auto at = [&](int vector, char16_t bit) { return test(LoadUnits(units + 8 * vector)) & SpreadUnit(bit); };
  const UnitVector bits = at(0, 0x01) | at(1, 0x10) | at(2, 0x02) | at(3, 0x20) |  //
                          at(4, 0x04) | at(5, 0x40) | at(6, 0x08) | at(7, 0x80);
  std::uint64_t halves[2];
  std::memcpy(halves, &bits, sizeof(halves));
  std::uint64_t mask = halves[0] | halves[1] << 8;
  const auto exchange = [&mask](int distance, std::uint64_t lower) {
    const std::uint64_t different = (mask ^ (mask >> distance)) & lower;
    mask ^= different ^ (different << distance);
  };
  exchange(30, 0x00000000CCCCCCCC);
  exchange(15, 0x0000AAAA0000AAAA);
  exchange(4, 0x00F000F000F000F0);
  return mask;
}

}  // namespace config
