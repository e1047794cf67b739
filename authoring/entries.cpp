#include "authoring/entries.h"

#include "authoring/checks/attributes.h"
#include "authoring/shown_path.h"
#include "model/child_key.h"
#include "model/entry_kind.h"
#include "model/ordered_menu_items.h"

#include <algorithm>
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
    entry.number = isNew ? static_cast<std::uint32_t>(known.size() - 1) : place->second->number;
    entry.end = entry.number + 1;
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
      menu.menu->end = static_cast<std::uint32_t>(known.size());
      open.pop_back();
      continue;
    }
    const WideStringView name = menu.names[menu.next++];
    const config::ConfigKey* key = model::FindChild(tree, *menu.menu->key, name);
    if (key != nullptr) add(*key, menu.menu, name);
  }
  NoteShared();
}

void Entries::NoteShared() {
  for (const Entry& entry : entries_) {
    if (entry.first != nullptr) shared_.emplace_back(entry.first->number, entry.first->end);
  }
  // Of menus one within the other the outer one comes first: it alone is needed.
  std::sort(shared_.begin(), shared_.end(),
            [](const auto& a, const auto& b) { return a.first != b.first ? a.first < b.first : a.second > b.second; });
  std::size_t kept = 0;
  for (const auto& numbers : shared_) {
    if (kept == 0 || shared_[kept - 1].second <= numbers.first) shared_[kept++] = numbers;
  }
  shared_.resize(kept);
}

bool Entries::StandsElsewhere(const Entry& entry) const {
  const auto after = std::upper_bound(shared_.begin(), shared_.end(), entry.number,
                                      [](std::uint32_t number, const auto& numbers) { return number < numbers.first; });
  return after != shared_.begin() && entry.number < (after - 1)->second;
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
