#include "settings/yaml_text.h"

#include "base/utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace settings {
namespace {

bool IsLetterOrDigit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || base::IsDigit(unit);
}

// Those that have no meaning of their own wherever they stand within a text.
bool IsPlain(char16_t unit) {
  return IsLetterOrDigit(unit) || WideStringView(u" _-./()+|").find(unit) != WideStringView::npos;
}

bool MayStandPlain(WideStringView text) {
  static constexpr std::array<WideStringView, 3> kReadAsNothing = {u"null", u"Null", u"NULL"};
  if (text.empty() || !IsLetterOrDigit(text.front()) || text.back() == u' ') return false;
  if (!std::all_of(text.begin(), text.end(), IsPlain)) return false;
  return std::find(kReadAsNothing.begin(), kReadAsNothing.end(), text) == kReadAsNothing.end();
}

// What an editor or a reader of YAML may take for something else than a character of the line.
bool NeedsNumber(char16_t unit) {
  return unit < u' ' || (unit >= 0x7F && unit <= 0xA0) || unit == 0x2028 || unit == 0x2029 || unit == 0xFEFF ||
         unit >= 0xFFFE;
}

}  // namespace

std::optional<std::string> YamlText(WideStringView text) {
  if (MayStandPlain(text)) return base::ToUtf8(text);
  if (base::FromUtf8(base::ToUtf8(text)) != text) return std::nullopt;
  std::string quoted = "\"";
  WideString stretch;
  const auto flush = [&] {
    quoted += base::ToUtf8(stretch);
    stretch.clear();
  };
  for (const char16_t unit : text) {
    if (unit == u'"' || unit == u'\\') {
      stretch.push_back(u'\\');
      stretch.push_back(unit);
    } else if (NeedsNumber(unit)) {
      flush();
      char number[8] = {};
      std::snprintf(number, sizeof number, "\\u%04X", static_cast<unsigned>(unit));
      quoted += number;
    } else {
      stretch.push_back(unit);
    }
  }
  flush();
  return quoted + "\"";
}

std::string CommentText(WideStringView text) {
  WideString shown(text);
  std::replace_if(shown.begin(), shown.end(), NeedsNumber, u' ');
  return base::ToUtf8(base::Trim(shown));
}

}  // namespace settings
