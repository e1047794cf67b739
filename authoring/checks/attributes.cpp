#include "authoring/checks/attributes.h"

#include "base/number.h"

#include <unordered_map>

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

const std::unordered_map<WideStringView, Attribute>& ByName() {
  static const std::unordered_map<WideStringView, Attribute> byName = [] {
    std::unordered_map<WideStringView, Attribute> map;
    for (std::size_t i = 0; i < kAttributeCount; ++i) map.emplace(kNames[i], static_cast<Attribute>(i));
    return map;
  }();
  return byName;
}

bool IsStem(Attribute attribute) { return attribute == Attribute::kDependency || attribute == Attribute::kOnExit; }

}  // namespace

WideStringView NameOf(Attribute attribute) {
  const auto index = static_cast<std::size_t>(attribute);
  return index < kAttributeCount ? kNames[index] : WideStringView();
}

NamedAttribute AttributeOf(WideStringView name) {
  const auto found = ByName().find(name);
  if (found != ByName().end()) return {found->second, 0};
  const std::size_t last = name.find_last_not_of(u"0123456789");
  if (last == WideStringView::npos || last + 1 == name.size()) return {};
  const WideStringView digits = name.substr(last + 1);
  const auto stem = ByName().find(name.substr(0, last + 1));
  if (stem == ByName().end() || !IsStem(stem->second)) return {};
  if (digits.front() == u'0' || digits.size() > 6) return {};
  return {stem->second, base::ToLong(digits)};
}

WideString NumberedName(Attribute stem, int number) {
  return WideString(NameOf(stem)) + (number == 0 ? WideString() : base::ToText(number));
}

}  // namespace authoring
