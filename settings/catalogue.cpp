#include "settings/catalogue.h"

#include "authoring/items.h"
#include "base/utf8.h"
#include "settings/given_value.h"
#include "settings/yaml_text.h"

#include <algorithm>

namespace settings {

using model::MenuItem;

namespace {

// A reader of YAML takes no longer name, and no menu lies deeper.
constexpr std::size_t kLongestName = 200;
constexpr std::size_t kDeepest = 50;

bool CanStandInAFile(const WideString& name) {
  return !name.empty() && name.size() <= kLongestName && YamlText(name).has_value();
}

}  // namespace

WideString NameOf(const MenuItem& item) { return WideString(base::Trim(item.Title())); }

std::vector<WideString> NamesOf(const MenuItem& item) {
  std::vector<WideString> names;
  for (const MenuItem* at = &item; at->Parent() != nullptr; at = at->Parent()) names.push_back(NameOf(*at));
  std::reverse(names.begin(), names.end());
  return names;
}

WideStringView OidOf(const MenuItem& item) { return authoring::OidOf(item); }

Catalogue::Catalogue(model::MenuModel& model) : model_(model) {}

const Catalogue::Lines& Catalogue::LinesOf(const MenuItem& menu) {
  const auto [entry, isNew] = menus_.try_emplace(&menu);
  if (isNew) {
    for (const auto& child : menu.Children()) entry->second[NameOf(*child)].push_back(child.get());
  }
  return entry->second;
}

MenuItem* Catalogue::ItemOfOid(WideStringView oid) const {
  const values::PropertyDescriptor* property = model_.FindDescriptor(oid);
  while (property != nullptr && property->Earlier() != nullptr) property = property->Earlier();
  return property == nullptr ? nullptr : model_.ItemOf(*property);
}

Catalogue::Found Catalogue::FindEntry(const std::vector<WideString>& path) {
  MenuItem* at = &model_.Root();
  for (std::size_t i = 0; i < path.size(); ++i) {
    const Lines& lines = LinesOf(*at);
    const auto found = lines.find(path[i]);
    if (found == lines.end()) {
      MenuItem* byOid = i + 1 == path.size() ? ItemOfOid(path[i]) : nullptr;
      if (byOid != nullptr) return {byOid, {}};
      const std::string where = at->Parent() == nullptr ? "the main menu" : "\"" + ToText(NamesOf(*at)) + "\"";
      return {nullptr, "there is no \"" + base::ToUtf8(path[i]) + "\" in " + where};
    }
    if (found->second.size() > 1) {
      return {nullptr, "there are " + std::to_string(found->second.size()) + " entries \"" + base::ToUtf8(path[i]) +
                           "\" in that menu; give the setting by its OID"};
    }
    at = found->second.front();
  }
  return {at, {}};
}

Catalogue::Found Catalogue::Find(const std::vector<WideString>& path) {
  Found found = FindEntry(path);
  const bool isSetting = found.item != nullptr && found.item->Descriptor() != nullptr;
  if (found.item == nullptr || isSetting) return found;
  return {nullptr, "\"" + ToText(path) + "\" is " + (found.item->IsLeaf() ? "no setting" : "a menu")};
}

std::vector<WideString> Catalogue::PathTo(MenuItem& item) {
  std::vector<WideString> names = NamesOf(item);
  const bool canStand =
      names.size() <= kDeepest && std::all_of(names.begin(), names.end(), [](const auto& n) { return CanStandInAFile(n); });
  if (canStand && Find(names).item == &item) return names;
  names = {WideString(OidOf(item))};
  const bool byOid = CanStandInAFile(names.front()) && Find(names).item == &item;
  return byOid ? names : std::vector<WideString>();
}

}  // namespace settings
