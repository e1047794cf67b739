#include "base/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <tmmintrin.h>
#endif

namespace base {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';

struct Lead {
  int length;             // bytes of the sequence, 0 when the byte starts none
  std::uint32_t bits;     // payload of the lead byte
  std::uint32_t minimum;  // smaller code points are overlong forms
};

Lead ClassifyLead(unsigned char byte) {
  if (byte < 0x80) return {1, byte, 0};
  if (byte >= 0xC2 && byte <= 0xDF) return {2, byte & 0x1Fu, 0x80};
  if (byte >= 0xE0 && byte <= 0xEF) return {3, byte & 0x0Fu, 0x800};
  if (byte >= 0xF0 && byte <= 0xF4) return {4, byte & 0x07u, 0x10000};
  return {0, 0, 0};
}

bool IsContinuation(char byte) { return (byte & 0xC0) == 0x80; }

bool IsSurrogate(std::uint32_t codePoint) { return codePoint >= 0xD800 && codePoint <= 0xDFFF; }
bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

char16_t* PutUtf16(char16_t* out, std::uint32_t codePoint) {
  if (codePoint < 0x10000) {
    *out = static_cast<char16_t>(codePoint);
    return out + 1;
  }
  codePoint -= 0x10000;
  out[0] = static_cast<char16_t>(0xD800 + (codePoint >> 10));
  out[1] = static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
  return out + 2;
}

// A part of a text that was converted.
struct Step {
  std::size_t bytes = 0;
  std::size_t units = 0;
};

// What is faster than one character after the other is done by blocks of bytes. They are read as a whole before
// anything is written, as both may lie in the same memory; as more units are written than count, no block is one of the
// last.
constexpr std::size_t kBlock = 16;
constexpr std::size_t kStepBytes = 2 * kBlock;

#ifdef __SSE2__

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
  const char* const last = at + bytes.size() - kStepBytes;
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

Step ConvertBlocksOf(std::string_view bytes, char16_t* out) {
  static const auto kBest =
      __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("popcnt") ? ConvertWithSsse3 : ConvertWithSse2;
  return kBest(bytes, out);
}

#else

// Words of ASCII.
Step ConvertBlocksOf(std::string_view bytes, char16_t* out) {
  Step done;
  std::uint64_t word = 0;
  while (bytes.size() - done.bytes >= kStepBytes) {
    std::memcpy(&word, bytes.data() + done.bytes, sizeof(word));
    if ((word & 0x8080808080808080u) != 0) break;
    for (std::size_t i = 0; i < sizeof(word); ++i) out[done.units++] = static_cast<char16_t>(bytes[done.bytes++]);
  }
  return done;
}

#endif

// One character that begins a text, by all the rules.
Step ConvertCharacter(std::string_view bytes, char16_t* out) {
  const Lead lead = ClassifyLead(static_cast<unsigned char>(bytes[0]));
  const auto length = static_cast<std::size_t>(lead.length);
  std::uint32_t codePoint = lead.bits;
  bool valid = length > 0 && length <= bytes.size();
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = IsContinuation(bytes[i]);
    codePoint = (codePoint << 6) | (static_cast<unsigned char>(bytes[i]) & 0x3Fu);
  }
  valid = valid && codePoint >= lead.minimum && codePoint <= 0x10FFFF && !IsSurrogate(codePoint);
  const char16_t* const end = PutUtf16(out, valid ? codePoint : std::uint32_t{kReplacement});
  return {valid ? length : 1, static_cast<std::size_t>(end - out)};
}

void AppendUtf8(std::string& bytes, std::uint32_t codePoint) {
  const auto append = [&bytes](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
  const auto continuation = [&](int shift) { append(0x80 | ((codePoint >> shift) & 0x3F)); };
  if (codePoint < 0x80) {
    append(codePoint);
  } else if (codePoint < 0x800) {
    append(0xC0 | (codePoint >> 6));
    continuation(0);
  } else if (codePoint < 0x10000) {
    append(0xE0 | (codePoint >> 12));
    continuation(6);
    continuation(0);
  } else {
    append(0xF0 | (codePoint >> 18));
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace

char16_t* DecodeUtf8(std::string_view bytes, char16_t* out) {
  const auto advance = [&](const Step& step) {
    bytes.remove_prefix(step.bytes);
    out += step.units;
  };
  while (!bytes.empty()) {
    if (bytes.size() >= kStepBytes) advance(ConvertBlocksOf(bytes, out));
    // What stopped the blocks is mostly not alone.
    const std::size_t left = bytes.size() - std::min(bytes.size(), kBlock);
    while (bytes.size() > left) advance(ConvertCharacter(bytes, out));
  }
  return out;
}

std::string_view Utf8Prefix(std::string_view bytes, std::size_t size) {
  if (size >= bytes.size()) return bytes;
  constexpr std::size_t kMaxContinuations = 3;
  for (std::size_t back = 0; back <= std::min(kMaxContinuations, size); ++back) {
    if (!IsContinuation(bytes[size - back])) return bytes.substr(0, size - back);
  }
  return bytes.substr(0, size);  // behind a sequence of the greatest length, or none
}

WideString FromUtf8(std::string_view bytes) {
  WideString text(bytes.size(), u'\0');
  const char16_t* const end = DecodeUtf8(bytes, text.data());
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

std::string ToUtf8(WideStringView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      const std::uint32_t high = unit - 0xD800u;
      const std::uint32_t low = text[++i] - 0xDC00u;
      AppendUtf8(bytes, 0x10000 + (high << 10) + low);
    } else {
      AppendUtf8(bytes, IsSurrogate(unit) ? std::uint32_t{kReplacement} : std::uint32_t{unit});
    }
  }
  return bytes;
}

}  // namespace base
