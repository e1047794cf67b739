#include "snmp/oid.h"

#include "base/utf8.h"
#include "snmp/decimal.h"

#include <algorithm>
#include <limits>

namespace snmp {
namespace {

constexpr std::int64_t kMaxNumber = std::numeric_limits<std::uint32_t>::max();

// The first two numbers travel as one.
bool CanTravel(const Oid& oid) {
  if (oid.size() < 2 || oid.size() > kMaxOidLength || oid[0] > 2) return false;
  return oid[1] <= (oid[0] < 2 ? 39 : kMaxNumber - 80);
}

std::optional<Oid> OidOfNumbers(std::string_view text) {
  Oid oid;
  for (std::size_t start = 0;;) {
    const std::size_t end = std::min(text.find('.', start), text.size());
    const auto number = ParseDecimal(text.substr(start, end - start));
    if (!number || *number < 0 || *number > kMaxNumber || oid.size() == kMaxOidLength) return std::nullopt;
    oid.push_back(static_cast<std::uint32_t>(*number));
    if (end == text.size()) break;
    start = end + 1;
  }
  if (!CanTravel(oid)) return std::nullopt;
  return oid;
}

// Empty when no name has that identifier.
WideString NameOf(const Oid& oid, const Oid& namesRoot) {
  if (!IsWithin(oid, namesRoot) || oid.size() == namesRoot.size()) return {};
  std::string octets;
  for (std::size_t i = namesRoot.size() + 1; i < oid.size(); ++i) octets.push_back(static_cast<char>(oid[i]));
  WideString name = base::FromUtf8(octets);
  return OidOf(name, namesRoot) == oid ? name : WideString();
}

}  // namespace

std::optional<Oid> OidOf(WideStringView text, const Oid& namesRoot) {
  const std::string bytes = base::ToUtf8(text);
  if (text.find(u'|') == WideStringView::npos) {
    const auto oid = OidOfNumbers(bytes);
    // What stands there are names.
    return oid && IsWithin(*oid, namesRoot) ? std::nullopt : oid;
  }
  // A name that UTF-8 cannot say would be another's.
  if (namesRoot.size() + 1 + bytes.size() > kMaxOidLength || base::FromUtf8(bytes) != text) return std::nullopt;
  Oid oid = namesRoot;
  oid.reserve(namesRoot.size() + 1 + bytes.size());
  oid.push_back(static_cast<std::uint32_t>(bytes.size()));
  for (const char octet : bytes) oid.push_back(static_cast<unsigned char>(octet));
  return oid;
}

WideString OidText(const Oid& oid, const Oid& namesRoot) {
  WideString text = NameOf(oid, namesRoot);
  if (!text.empty()) return text;
  for (const std::uint32_t number : oid) {
    if (!text.empty()) text.push_back(u'.');
    text += base::FromUtf8(std::to_string(number));
  }
  return text;
}

bool IsWithin(const Oid& oid, const Oid& root) {
  return oid.size() >= root.size() && std::equal(root.begin(), root.end(), oid.begin());
}

}  // namespace snmp
