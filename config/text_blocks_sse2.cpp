// For processors that all know SSE2, such as x86-64.
#ifdef __SSE2__
#include "config/bracket_mask.h"

#include <emmintrin.h>

namespace config {
namespace {

constexpr std::size_t kVectors = 4;  // of a block of bytes

__m128i Load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
void Store(char16_t* to, __m128i units) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), units); }

std::uint64_t BracketsIn(__m128i bytes) {
  const __m128i brackets = _mm_cmpeq_epi8(_mm_or_si128(bytes, _mm_set1_epi8(kBracketBit)), _mm_set1_epi8('>'));
  return static_cast<std::uint32_t>(_mm_movemask_epi8(brackets));
}

TextBlocks::Result Widen(const char* bytes, std::size_t count, char16_t* units, std::uint32_t first,
                         std::uint32_t* places) {
  std::size_t done = 0;
  for (; done < count; ++done, bytes += kTextBlock, first += kTextBlock) {
    // All is read before anything is written.
    const __m128i vectors[kVectors] = {Load(bytes), Load(bytes + 16), Load(bytes + 32), Load(bytes + 48)};
    const __m128i all = _mm_or_si128(_mm_or_si128(vectors[0], vectors[1]), _mm_or_si128(vectors[2], vectors[3]));
    if (_mm_movemask_epi8(all) != 0) break;
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < kVectors; ++i) {
      Store(units + first + 16 * i, _mm_unpacklo_epi8(vectors[i], _mm_setzero_si128()));
      Store(units + first + 16 * i + 8, _mm_unpackhi_epi8(vectors[i], _mm_setzero_si128()));
      mask |= BracketsIn(vectors[i]) << (16 * i);
    }
    places = AddPlaces(mask, first, places);
  }
  return {done, places};
}

std::uint32_t* Mark(const char16_t* units, std::size_t length, std::uint32_t first, std::uint32_t* places) {
  for (std::size_t at = 0; at < length; at += kTextBlock, first += kTextBlock) {
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < kVectors; ++i) {
      const char16_t* const from = units + first + 16 * i;
      // Units that are no bytes become 0 or 255.
      mask |= BracketsIn(_mm_packus_epi16(Load(from), Load(from + 8))) << (16 * i);
    }
    places = AddPlaces(FirstBits(mask, length - at), first, places);
  }
  return places;
}

}  // namespace

const TextBlocks kSse2TextBlocks = {"SSE2", Widen, Mark};

}  // namespace config
#endif
