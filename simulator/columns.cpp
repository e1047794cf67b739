#include "simulator/columns.h"

#include "base/utf8.h"

#include <algorithm>

namespace simulator {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

void AppendUnitEscape(std::string& bytes, char16_t unit) {
  bytes += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) bytes.push_back(kHexDigits[(unit >> shift) & 0xF]);
}

bool IsSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }
bool ArePair(char16_t high, char16_t low) { return high >= 0xD800 && high <= 0xDBFF && low >= 0xDC00 && low <= 0xDFFF; }

std::optional<char16_t> UnitOf(WideStringView digits) {
  if (digits.size() != 4) return std::nullopt;
  unsigned number = 0;
  for (const char16_t digit : digits) {
    const char16_t upper = base::ToUpper(digit);
    const std::size_t value = upper < 0x80 ? kHexDigits.find(static_cast<char>(upper)) : std::string_view::npos;
    if (value == std::string_view::npos) return std::nullopt;
    number = number * 16 + static_cast<unsigned>(value);
  }
  return static_cast<char16_t>(number);
}

std::optional<WideString> Unescape(WideStringView text) {
  WideString plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\') {
      plain.push_back(text[i]);
      continue;
    }
    const char16_t kind = ++i < text.size() ? text[i] : u'\0';
    if (kind == u't') {
      plain.push_back(u'\t');
    } else if (kind == u'n') {
      plain.push_back(u'\n');
    } else if (kind == u'\\') {
      plain.push_back(u'\\');
    } else if (const auto unit = kind == u'u' ? UnitOf(text.substr(i + 1, 4)) : std::nullopt) {
      plain.push_back(*unit);
      i += 4;
    } else {
      return std::nullopt;
    }
  }
  return plain;
}

std::string Escape(WideStringView text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit == u'\t') {
      bytes += "\\t";
    } else if (unit == u'\n') {
      bytes += "\\n";
    } else if (unit == u'\\') {
      bytes += "\\\\";
    } else if (i + 1 < text.size() && ArePair(unit, text[i + 1])) {
      bytes += base::ToUtf8(text.substr(i, 2));
      ++i;
    } else if (unit < u' ' || unit == 0xFEFF || IsSurrogate(unit)) {
      AppendUnitEscape(bytes, unit);
    } else {
      bytes += base::ToUtf8(text.substr(i, 1));
    }
  }
  return bytes;
}

}  // namespace

bool IsComment(std::string_view line) {
  return line.starts_with('#') || line.find_first_not_of(" \t") == std::string_view::npos;
}

std::optional<std::vector<WideString>> SplitColumns(std::string_view line) {
  const WideString wide = base::FromUtf8(line);
  std::vector<WideString> columns;
  for (std::size_t start = 0;;) {
    const std::size_t end = std::min(wide.find(u'\t', start), wide.size());
    auto column = Unescape(WideStringView(wide).substr(start, end - start));
    if (!column) return std::nullopt;
    columns.push_back(std::move(*column));
    if (end == wide.size()) return columns;
    start = end + 1;
  }
}

std::string JoinColumns(const std::vector<WideString>& columns) {
  std::string line;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i > 0) line.push_back('\t');
    line += Escape(columns[i]);
  }
  // A blank that begins a line is none of the tabs between the columns.
  if (!IsComment(line) || columns.front().empty()) return line;
  std::string escaped;
  AppendUnitEscape(escaped, columns.front().front());
  return escaped + line.substr(1);
}

}  // namespace simulator
