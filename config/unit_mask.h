// Tests on many units at once: what is a loop over units elsewhere is here a number with one bit for each unit, found
// without a branch. The vectors are those that GCC and Clang both have for all processors.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace config {

// Holds for a unit that is `value` once the bits of `ignored` are set in it: one comparison for up to two units.
struct UnitTest {
  std::uint16_t ignored = 0;
  std::uint16_t value = 0;
};

// Bit i tells whether one of the tests holds for units[i]; Count units are read, a multiple of 8 up to 64.
template <std::size_t Count, typename... Tests>
inline std::uint64_t UnitMask(const char16_t* units, Tests... tests) {
  static_assert(Count % 8 == 0 && Count <= 64);
  using Vector [[gnu::vector_size(16)]] = std::uint16_t;
  constexpr auto spread = [](std::uint16_t n) { return Vector{n, n, n, n, n, n, n, n}; };
  const Vector bits = {1, 2, 4, 8, 16, 32, 64, 128};
  std::uint64_t mask = 0;
  for (std::size_t i = 0; i < Count; i += 8) {
    Vector eight;
    std::memcpy(&eight, units + i, sizeof(eight));
    const Vector hits = (... | (Vector)((eight | spread(tests.ignored)) == spread(tests.value))) & bits;
    std::uint64_t halves[2];
    std::memcpy(halves, &hits, sizeof(halves));
    // The product adds up the four numbers of 16 bits in its highest one.
    mask |= (((halves[0] | halves[1]) * 0x0001000100010001) >> 48) << i;
  }
  return mask;
}

}  // namespace config
