// Where a person stands in the menus, in words that outlive the configuration: the place is found again in another one,
// as nearly as it can be when entries were renamed, moved or removed.
#pragma once

#include "model/menu_item.h"
#include "model/menu_model.h"

#include <optional>
#include <vector>

namespace simulator {

// How an entry is recognised among its siblings.
struct EntryMark {
  WideString name;   // of the key
  WideString oid;    // of a property or a command; empty: a menu
  WideString title;  // as the key has it
  bool operator==(const EntryMark&) const = default;
};

// An entry and those around it.
struct MarkedEntry {
  std::vector<EntryMark> siblings;  // all of its menu, it too
  std::size_t index = 0;
};

struct MenuPlace {
  std::vector<MarkedEntry> menus;    // from the one below the root down to the menu shown
  std::optional<MarkedEntry> entry;  // of the selected line; nothing: a line of the list's own
};

// `selected` may be null.
MenuPlace PlaceIn(const model::MenuItem& menu, const model::MenuItem* selected);

// Which of the entries that there are now is the one meant: that of its name, its OID or its title, else one that has
// come in its place. Nothing: it was removed.
std::optional<std::size_t> FindEntry(const MarkedEntry& wanted, const std::vector<EntryMark>& now);

struct FoundPlace {
  std::vector<const model::MenuItem*> menus;  // those there still are, from the one below the root
  const model::MenuItem* entry = nullptr;     // in the last of them, or the root; null: none
};
// `root` is the model's.
FoundPlace FindPlaceIn(const model::MenuItem& root, const MenuPlace& place);

}  // namespace simulator
