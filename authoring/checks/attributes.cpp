#include "authoring/checks/attributes.h"

#include "base/number.h"

#include <algorithm>

namespace authoring {
namespace {

constexpr WideStringView kNames[] = {
    u"DisplayName", u"OID",        u"CmdOID",      u"Type",         u"Ordinal",  u"DefVal",   u"ChoiceFmt",
    u"CmdString",   u"Descendent", u"Unavailable", u"PropEditor",   u"Security", u"TextFmt",  u"Range",
    u"MaxChars",    u"SubType",    u"FillOID",     u"PassWordChar", u"WEP",      u"CustPage", u"PageDependency",
    u"ShortDesc",   u"SNMPEvent",  u"Symbology",   u"_OnEnter",     u"_OnError", u"Function", u"AppName",
    u"Event",       u"Dependency", u"_OnExit",
};
static_assert(std::size(kNames) == kAttributeCount);

constexpr std::size_t kLongestName = 14;

// The few names of each length.
const std::array<std::vector<Attribute>, kLongestName + 1>& ByLength() {
  static const auto byLength = [] {
    std::array<std::vector<Attribute>, kLongestName + 1> lists;
    for (std::size_t i = 0; i < kAttributeCount; ++i) lists.at(kNames[i].size()).push_back(static_cast<Attribute>(i));
    return lists;
  }();
  return byLength;
}

Attribute Named(WideStringView name) {
  if (name.size() > kLongestName) return Attribute::kUnknown;
  const auto& candidates = ByLength()[name.size()];
  const auto found = std::find_if(candidates.begin(), candidates.end(),
                                  [name](Attribute candidate) { return NameOf(candidate) == name; });
  return found == candidates.end() ? Attribute::kUnknown : *found;
}

bool IsStem(Attribute attribute) { return attribute == Attribute::kDependency || attribute == Attribute::kOnExit; }

}  // namespace

WideStringView NameOf(Attribute attribute) {
  const auto index = static_cast<std::size_t>(attribute);
  return index < kAttributeCount ? kNames[index] : WideStringView();
}

NamedAttribute AttributeOf(WideStringView name) {
  const Attribute whole = Named(name);
  if (whole != Attribute::kUnknown) return {whole, 0};
  const std::size_t last = name.find_last_not_of(u"0123456789");
  if (last == WideStringView::npos || last + 1 == name.size()) return {};
  const WideStringView digits = name.substr(last + 1);
  const Attribute stem = Named(name.substr(0, last + 1));
  if (!IsStem(stem)) return {};
  if (digits.front() == u'0' || digits.size() > 6) return {};
  return {stem, base::ToLong(digits)};
}

WideString NumberedName(Attribute stem, int number) {
  return WideString(NameOf(stem)) + (number == 0 ? WideString() : base::ToText(number));
}

std::vector<WideStringView> NumberedTexts(const config::ConfigKey& key, Attribute stem) {
  std::vector<WideStringView> texts;
  WideStringView text = key.Value(NameOf(stem));
  for (int number = 1; !text.empty(); ++number) {
    texts.push_back(text);
    text = key.Value(NumberedName(stem, number));
  }
  return texts;
}

}  // namespace authoring
