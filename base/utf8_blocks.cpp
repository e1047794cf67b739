// Characters of one, two and three bytes by blocks of 16 bytes, and words of ASCII for other processors.
#include "base/utf8_blocks.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <tmmintrin.h>
#endif

namespace base {
namespace {

using Step = Utf8Blocks::Step;

// Words of ASCII.
Step ConvertWords(std::string_view bytes, char16_t* out) {
  Step done;
  std::uint64_t word = 0;
  while (bytes.size() - done.bytes >= Utf8Blocks::kLeast) {
    std::memcpy(&word, bytes.data() + done.bytes, sizeof(word));
    if ((word & 0x8080808080808080u) != 0) break;
    for (std::size_t i = 0; i < sizeof(word); ++i) out[done.units++] = static_cast<char16_t>(bytes[done.bytes++]);
  }
  return done;
}

#ifdef __SSE2__

constexpr std::size_t kBlock = 16;

__m128i Load(const char* from) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)); }
void Store(char16_t* to, __m128i units) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), units); }

std::uint32_t MaskOf(__m128i bytes) { return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes)); }

__m128i Either(__m128i mask, __m128i yes, __m128i no) {
  return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}

// What each of eight bytes would be as the beginning of a character, with the two behind it; each is in 16 bits.
__m128i UnitsFrom(__m128i first, __m128i second, __m128i third) {
  const __m128i low6 = _mm_set1_epi16(0x3F);
  second = _mm_and_si128(second, low6);
  third = _mm_and_si128(third, low6);
  const __m128i ofTwo = _mm_or_si128(_mm_slli_epi16(_mm_and_si128(first, _mm_set1_epi16(0x1F)), 6), second);
  const __m128i ofThree = _mm_or_si128(_mm_slli_epi16(first, 12), _mm_or_si128(_mm_slli_epi16(second, 6), third));
  const __m128i ofMore = Either(_mm_cmpgt_epi16(first, _mm_set1_epi16(0xDF)), ofThree, ofTwo);
  return Either(_mm_cmpgt_epi16(first, _mm_set1_epi16(0x7F)), ofMore, first);
}

// -1 for a unit that three bytes must not stand for: one that fewer bytes can, or half a surrogate pair.
__m128i IsNoneOfThree(__m128i units) {
  const __m128i top5 = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800)));
  return _mm_or_si128(_mm_cmpeq_epi16(top5, _mm_setzero_si128()),
                      _mm_cmpeq_epi16(top5, _mm_set1_epi16(static_cast<short>(0xD800))));
}

// A block of bytes, each taken for the beginning of a character.
struct Characters {
  __m128i units[2];
  std::uint32_t beginnings = 0;  // of the bytes that really are
  std::size_t size = 0;          // bytes, without a character that goes on behind the block; 0: it cannot be done
};

[[gnu::always_inline]] inline Characters ReadCharacters(__m128i first, std::uint32_t others) {
  const auto from = [first, others](int lead) {
    return others & MaskOf(_mm_cmpgt_epi8(first, _mm_set1_epi8(static_cast<char>(lead - 1))));
  };
  const std::uint32_t leads = from(0xC0);
  const std::uint32_t leadsOfThree = from(0xE0);
  const std::uint32_t continuations = others ^ leads;
  if ((((leads << 1) | (leadsOfThree << 2)) & 0xFFFF) != continuations) return {};
  if (leads != from(0xC2) || from(0xF0) != 0) return {};

  const __m128i zero = _mm_setzero_si128();
  const __m128i second = _mm_srli_si128(first, 1);
  const __m128i third = _mm_srli_si128(first, 2);
  Characters read;
  read.units[0] =
      UnitsFrom(_mm_unpacklo_epi8(first, zero), _mm_unpacklo_epi8(second, zero), _mm_unpacklo_epi8(third, zero));
  read.units[1] =
      UnitsFrom(_mm_unpackhi_epi8(first, zero), _mm_unpackhi_epi8(second, zero), _mm_unpackhi_epi8(third, zero));
  const std::size_t size = kBlock - (leads >> 15) - (leadsOfThree >> 14 & 1) * 2;
  read.beginnings = ~continuations & ((1u << size) - 1);
  const std::uint32_t wrong = MaskOf(_mm_packs_epi16(IsNoneOfThree(read.units[0]), IsNoneOfThree(read.units[1])));
  if ((wrong & leadsOfThree & read.beginnings) == 0) read.size = size;
  return read;
}

// Converts as much as can be in steps of a block. put(units, beginnings, out) stores those of eight units that begin a
// character, and returns the end of them; it may write all eight.
template <typename Put>
[[gnu::always_inline]] inline Step ConvertBlocks(std::string_view bytes, char16_t* out, Put put) {
  const char* at = bytes.data();
  const char* const last = at + bytes.size() - Utf8Blocks::kLeast;
  char16_t* const start = out;
  while (at <= last) {
    const __m128i first = Load(at);
    const std::uint32_t others = MaskOf(first);  // than ASCII
    if (others == 0) {
      Store(out, _mm_unpacklo_epi8(first, _mm_setzero_si128()));
      Store(out + 8, _mm_unpackhi_epi8(first, _mm_setzero_si128()));
      at += kBlock;
      out += kBlock;
      continue;
    }
    const Characters read = ReadCharacters(first, others);
    if (read.size == 0) break;
    at += read.size;
    out = put(read.units[0], read.beginnings & 0xFF, out);
    out = put(read.units[1], read.beginnings >> 8, out);
  }
  return {static_cast<std::size_t>(at - bytes.data()), static_cast<std::size_t>(out - start)};
}

struct PutOneByOne {
  char16_t* operator()(__m128i vector, std::uint32_t beginnings, char16_t* out) const {
    char16_t units[8];
    Store(units, vector);
    for (const char16_t unit : units) {  // without a branch
      *out = unit;
      out += beginnings & 1;
      beginnings >>= 1;
    }
    return out;
  }
};

Step ConvertWithSse2(std::string_view bytes, char16_t* out) { return ConvertBlocks(bytes, out, PutOneByOne()); }

// For each set of eight units, where in their vector the bytes are of those that belong to the set.
struct Order {
  alignas(16) std::uint8_t bytes[16];
};
constexpr auto kOrders = [] {
  std::array<Order, 256> orders = {};
  for (std::size_t set = 0; set < orders.size(); ++set) {
    std::size_t count = 0;
    for (std::uint8_t unit = 0; unit < 8; ++unit) {
      if ((set >> unit & 1) == 0) continue;
      orders[set].bytes[count++] = static_cast<std::uint8_t>(2 * unit);
      orders[set].bytes[count++] = static_cast<std::uint8_t>(2 * unit + 1);
    }
  }
  return orders;
}();

struct PutByShuffle {
  [[gnu::target("ssse3,popcnt")]] char16_t* operator()(__m128i vector, std::uint32_t beginnings, char16_t* out) const {
    const __m128i order = _mm_load_si128(reinterpret_cast<const __m128i*>(kOrders[beginnings].bytes));
    Store(out, _mm_shuffle_epi8(vector, order));
    return out + std::popcount(beginnings);
  }
};

[[gnu::target("ssse3,popcnt")]] Step ConvertWithSsse3(std::string_view bytes, char16_t* out) {
  return ConvertBlocks(bytes, out, PutByShuffle());
}

#endif

constexpr Utf8Blocks kPlain = {"plain", ConvertWords};
#ifdef __SSE2__
constexpr Utf8Blocks kSse2 = {"SSE2", ConvertWithSse2};
constexpr Utf8Blocks kSsse3 = {"SSSE3", ConvertWithSsse3};
#endif

}  // namespace

std::span<const Utf8Blocks* const> UsableUtf8Blocks() {
  static constexpr const Utf8Blocks* kAll[] = {
#ifdef __SSE2__
      &kSsse3, &kSse2,
#endif
      &kPlain};
#ifdef __SSE2__
  static const bool kHasSsse3 = __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("popcnt");
  if (!kHasSsse3) return std::span(kAll).subspan(1);
#endif
  return kAll;
}

}  // namespace base
