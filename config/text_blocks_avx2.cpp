// For processors on which AVX2 is found when the program runs.
#include "config/text_blocks.h"

#ifdef KEL_TEXT_BLOCKS_AVX2
#include "config/bracket_mask.h"

#include <immintrin.h>

namespace config {
namespace {

#define KEL_TARGET [[gnu::target("avx2,bmi,popcnt")]]

KEL_TARGET std::uint64_t BracketsIn(__m256i bytes) {
  const __m256i brackets =
      _mm256_cmpeq_epi8(_mm256_or_si256(bytes, _mm256_set1_epi8(kBracketBit)), _mm256_set1_epi8('>'));
  return static_cast<std::uint32_t>(_mm256_movemask_epi8(brackets));
}

KEL_TARGET __m256i Load(const void* from) { return _mm256_loadu_si256(static_cast<const __m256i*>(from)); }

KEL_TARGET void StoreWidened(char16_t* to, __m128i bytes) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), _mm256_cvtepu8_epi16(bytes));
}

// Units that are no bytes become 0 or 255.
KEL_TARGET __m256i Narrowed(const char16_t* units) {
  constexpr int kQuartersInOrder = 0b11'01'10'00;
  return _mm256_permute4x64_epi64(_mm256_packus_epi16(Load(units), Load(units + 16)), kQuartersInOrder);
}

KEL_TARGET TextBlocks::Result Widen(const char* bytes, std::size_t count, char16_t* units, std::uint32_t first,
                                    std::uint32_t* places) {
  std::size_t done = 0;
  for (; done < count; ++done, bytes += kTextBlock, first += kTextBlock) {
    // All is read before anything is written.
    const __m256i low = Load(bytes);
    const __m256i high = Load(bytes + 32);
    if (_mm256_movemask_epi8(_mm256_or_si256(low, high)) != 0) break;
    StoreWidened(units + first, _mm256_castsi256_si128(low));
    StoreWidened(units + first + 16, _mm256_extracti128_si256(low, 1));
    StoreWidened(units + first + 32, _mm256_castsi256_si128(high));
    StoreWidened(units + first + 48, _mm256_extracti128_si256(high, 1));
    places = AddPlaces(BracketsIn(low) | BracketsIn(high) << 32, first, places);
  }
  return {done, places};
}

KEL_TARGET std::uint32_t* Mark(const char16_t* units, std::size_t length, std::uint32_t first, std::uint32_t* places) {
  for (std::size_t at = 0; at < length; at += kTextBlock, first += kTextBlock) {
    const std::uint64_t mask = BracketsIn(Narrowed(units + first)) | BracketsIn(Narrowed(units + first + 32)) << 32;
    places = AddPlaces(FirstBits(mask, length - at), first, places);
  }
  return places;
}

}  // namespace

const TextBlocks kAvx2TextBlocks = {"AVX2", Widen, Mark};

}  // namespace config
#endif
