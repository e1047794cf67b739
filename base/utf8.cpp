#include "base/utf8.h"

#include "base/utf8_blocks.h"

#include <algorithm>
#include <cstdint>

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

// One character that begins a text, by all the rules.
Utf8Blocks::Step ConvertCharacter(std::string_view bytes, char16_t* out) {
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
  static const Utf8Blocks& kBest = *UsableUtf8Blocks().front();
  return DecodeUtf8(bytes, out, kBest);
}

char16_t* DecodeUtf8(std::string_view bytes, char16_t* out, const Utf8Blocks& blocks) {
  constexpr std::size_t kOneByOne = 16;  // bytes: what stops the blocks is mostly not alone
  const auto advance = [&](const Utf8Blocks::Step& step) {
    bytes.remove_prefix(step.bytes);
    out += step.units;
  };
  while (!bytes.empty()) {
    if (bytes.size() >= Utf8Blocks::kLeast) advance(blocks.convert(bytes, out));
    const std::size_t left = bytes.size() - std::min(bytes.size(), kOneByOne);
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
