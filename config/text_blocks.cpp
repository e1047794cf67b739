// For processors of which nothing is known, and which of them all is taken.
#include "config/text_blocks.h"

#include "config/bracket_mask.h"

namespace config {
namespace {

constexpr bool IsBracket(int c) { return (c | kBracketBit) == '>'; }

TextBlocks::Result Widen(const char* bytes, std::size_t count, char16_t* units, std::uint32_t first,
                         std::uint32_t* places) {
  std::size_t done = 0;
  for (; done < count; ++done, bytes += kTextBlock, first += kTextBlock) {
    if (std::any_of(bytes, bytes + kTextBlock, [](char c) { return (c & 0x80) != 0; })) break;
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < kTextBlock; ++i) {
      const char byte = bytes[i];
      units[first + i] = static_cast<char16_t>(byte);
      mask |= std::uint64_t{IsBracket(byte)} << i;
    }
    places = AddPlaces(mask, first, places);
  }
  return {done, places};
}

std::uint32_t* Mark(const char16_t* units, std::size_t length, std::uint32_t first, std::uint32_t* places) {
  const auto end = first + static_cast<std::uint32_t>(length);
  for (; first != end; ++first) {
    *places = first;
    places += IsBracket(units[first]) ? 1 : 0;
  }
  return places;
}

}  // namespace

const TextBlocks kPlainTextBlocks = {"plain", Widen, Mark};

std::span<const TextBlocks* const> UsableTextBlocks() {
  static constexpr const TextBlocks* kAll[] = {
#ifdef KEL_TEXT_BLOCKS_AVX2
      &kAvx2TextBlocks,
#endif
#ifdef __SSE2__
      &kSse2TextBlocks,
#endif
      &kPlainTextBlocks};
#ifdef KEL_TEXT_BLOCKS_AVX2
  static const bool kHasAvx2 =
      __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("popcnt");
  if (!kHasAvx2) return std::span(kAll).subspan(1);
#endif
  return kAll;
}

}  // namespace config
