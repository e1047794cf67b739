// The words inside a tag.
#pragma once

#include "base/wide_string.h"
#include "config/unit_mask.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace config {

inline bool IsXmlBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r'; }

// The units that end a token: blanks and < > = \ / ? !
inline bool IsXmlDelimiter(char16_t unit) {
  constexpr auto bit = [](char16_t c) { return std::uint64_t{1} << c; };
  constexpr std::uint64_t kDelimiters = bit(u' ') | bit(u'\t') | bit(u'\n') | bit(u'\r') | bit(u'<') | bit(u'>') |
                                        bit(u'=') | bit(u'/') | bit(u'?') | bit(u'!');
  return unit < 64 ? ((kDelimiters >> unit) & 1) != 0 : unit == u'\\';
}

inline std::size_t SkipXmlBlanks(WideStringView text, std::size_t at) {
  while (at < text.size() && IsXmlBlank(text[at])) ++at;
  return at;
}

struct XmlToken {
  WideStringView text;  // without quotes
  bool quoted = false;
  bool missing = false;  // nothing but blanks was left
  std::size_t end = 0;   // behind the token, and its closing quote

  bool Is(char16_t delimiter) const { return !quoted && text.size() == 1 && text[0] == delimiter; }
};

// A quoted token without its closing quote, and a delimiter that is a token by itself, are tokens too.
inline XmlToken ReadXmlToken(WideStringView text, std::size_t at) {
  const std::size_t start = SkipXmlBlanks(text, at);
  if (start == text.size()) return {{}, false, true, start};
  if (text[start] == u'"' || text[start] == u'\'') {
    const std::size_t quote = std::min(text.find(text[start], start + 1), text.size());
    return {text.substr(start + 1, quote - start - 1), true, false, std::min(quote + 1, text.size())};
  }
  std::size_t end = start + 1;
  if (!IsXmlDelimiter(text[start])) {
    while (end < text.size() && !IsXmlDelimiter(text[end])) ++end;
  }
  return {text.substr(start, end - start), false, false, end};
}

// The length of the token that begins at `units`, of which 16 can be read, when it is short and has none but the most
// usual units; else 0.
inline std::size_t PlainTokenLength(const char16_t* units) {
  const std::uint64_t unusual = UnitMask16(units, [](UnitVector v) -> UnitVector {
    return (v < SpreadUnit(u'0')) | ((v & SpreadUnit(0xFFFC)) == SpreadUnit(u'<')) | (v == SpreadUnit(u'\\'));
  });
  if (unusual == 0) return 0;
  const auto length = static_cast<std::size_t>(std::countr_zero(unusual));
  return units[length] == u'>' || IsXmlDelimiter(units[length]) ? length : 0;
}

// A token equals a name that begins with it and then ends, or goes on with a blank, "=", "/" or "[".
inline bool XmlTokenEquals(WideStringView token, WideStringView name) {
  if (name.substr(0, token.size()) != token) return false;
  return name.size() == token.size() || WideStringView(u" =/[").find(name[token.size()]) != WideStringView::npos;
}

}  // namespace config
