#include "base/utf8.h"

#include <bit>
#include <cstdint>
#include <cstring>

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

// Widens a block of bytes when all of them are ASCII. It is read as a whole before anything is written, as both may lie
// in the same memory. The vectors are those that GCC and Clang both have for all processors.
constexpr std::size_t kBlock = 16;
bool PutAsciiBlock(const char* bytes, char16_t* out) {
  static_assert(std::endian::native == std::endian::little);
  using Bytes [[gnu::vector_size(16)]] = std::uint8_t;
  constexpr Bytes kZeros = {};
  std::uint64_t halves[2];
  std::memcpy(halves, bytes, kBlock);
  if (((halves[0] | halves[1]) & 0x8080808080808080u) != 0) return false;
  Bytes block;
  std::memcpy(&block, halves, kBlock);
  const Bytes low = __builtin_shufflevector(block, kZeros, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
  const Bytes high =
      __builtin_shufflevector(block, kZeros, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
  std::memcpy(out, &low, kBlock);
  std::memcpy(out + 8, &high, kBlock);
  return true;
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
  std::size_t at = 0;
  while (at < bytes.size()) {
    while (bytes.size() - at >= kBlock && PutAsciiBlock(bytes.data() + at, out)) {
      at += kBlock;
      out += kBlock;
    }
    if (at == bytes.size()) break;
    const Lead lead = ClassifyLead(static_cast<unsigned char>(bytes[at]));
    std::uint32_t codePoint = lead.bits;
    bool valid = lead.length > 0 && at + static_cast<std::size_t>(lead.length) <= bytes.size();
    for (int i = 1; valid && i < lead.length; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
      valid = (byte & 0xC0) == 0x80;
      codePoint = (codePoint << 6) | (byte & 0x3Fu);
    }
    valid = valid && codePoint >= lead.minimum && codePoint <= 0x10FFFF && !IsSurrogate(codePoint);
    out = PutUtf16(out, valid ? codePoint : std::uint32_t{kReplacement});
    at += valid ? static_cast<std::size_t>(lead.length) : 1;
  }
  return out;
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
