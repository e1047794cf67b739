#include "authoring/entries.h"

#include "authoring/checks/attributes.h"
#include "authoring/shown_path.h"
#include "model/child_key.h"
#include "model/entry_kind.h"
#include "model/ordered_menu_items.h"

#include <unordered_map>

namespace authoring {

WideStringView Entry::Oid() const { return model::OidOf(*key); }

std::vector<WideStringView> RulesOf(const config::ConfigKey& key) { return NumberedTexts(key, Attribute::kDependency); }

Entries::Entries(const config::PDataStore& tree, WideStringView rootPath) {
  struct OpenMenu {
    Entry* menu;
    std::vector<WideStringView> names;
    std::size_t next = 0;
  };
  std::vector<OpenMenu> open;
  std::unordered_map<const config::ConfigKey*, const Entry*> known;
  known.reserve(tree.Count());
  const auto add = [&](const config::ConfigKey& key, Entry* parent, WideStringView name) {
    Entry& entry = entries_.emplace_back();
    entry.key = &key;
    entry.parent = parent;
    entry.name = name;
    if (parent != nullptr) {
      entry.depth = parent->depth + 1;
      parent->children.push_back(&entry);
    }
    const auto [place, isNew] = known.emplace(&key, &entry);
    entry.number = isNew ? known.size() - 1 : place->second->number;
    if (!isNew) {
      entry.first = place->second;
    } else if (!key.Subkeys().empty()) {
      std::vector<WideStringView> names(key.Subkeys().begin(), key.Subkeys().end());
      model::InitOrderedMenuItems(names, key, tree);
      open.push_back({&entry, std::move(names)});
    }
  };

  const config::ConfigKey* root = tree.Find(rootPath);
  static const config::ConfigKey kNone;
  add(root == nullptr ? kNone : *root, nullptr, rootPath);
  while (!open.empty()) {
    OpenMenu& menu = open.back();
    if (menu.next == menu.names.size()) {
      open.pop_back();
      continue;
    }
    const WideStringView name = menu.names[menu.next++];
    const config::ConfigKey* key = model::FindChild(tree, *menu.menu->key, name);
    if (key != nullptr) add(*key, menu.menu, name);
  }
}

WideString Entries::PathOf(const Entry& entry) {
  const Entry* at = &entry;
  return ShownPath([&at]() -> std::optional<WideStringView> {
    if (at->parent == nullptr) return std::nullopt;
    const WideStringView name = at->name;
    at = at->parent;
    return name;
  });
}

}  // namespace authoring
