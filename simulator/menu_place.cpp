#include "simulator/menu_place.h"

#include "base/string_table.h"

#include <algorithm>

namespace simulator {
namespace {

using model::MenuItem;

std::vector<EntryMark> MarksOf(const MenuItem& menu) {
  std::vector<EntryMark> marks;
  for (const auto& child : menu.Children()) {
    EntryMark mark{WideString(child->Name()), {}, WideString(child->DisplayName())};
    if (const config::ConfigKey* key = child->Key()) {
      const WideStringView oid = key->Value(TextId::kOid);
      mark.oid = oid.empty() ? key->Value(TextId::kCmdOid) : oid;
    }
    marks.push_back(std::move(mark));
  }
  return marks;
}

MarkedEntry Mark(const MenuItem& item) {
  const auto& siblings = item.Parent()->Children();
  const auto at =
      std::find_if(siblings.begin(), siblings.end(), [&](const auto& child) { return child.get() == &item; });
  return {MarksOf(*item.Parent()), static_cast<std::size_t>(at - siblings.begin())};
}

// Of several the nearest to where it stood.
template <typename Is>
std::optional<std::size_t> Nearest(const std::vector<EntryMark>& entries, std::size_t index, Is is) {
  const auto distance = [index](std::size_t i) { return i > index ? i - index : index - i; };
  std::optional<std::size_t> nearest;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (is(entries[i]) && (!nearest || distance(i) < distance(*nearest))) nearest = i;
  }
  return nearest;
}

bool HasName(const std::vector<EntryMark>& entries, const WideString& name) {
  return std::any_of(entries.begin(), entries.end(), [&](const EntryMark& entry) { return entry.name == name; });
}

// What was renamed altogether is a new entry behind the one that was before it.
std::optional<std::size_t> NewInItsPlace(const MarkedEntry& wanted, const std::vector<EntryMark>& now) {
  std::size_t at = wanted.index;
  if (wanted.index > 0) {
    const WideString& before = wanted.siblings[wanted.index - 1].name;
    const auto found = Nearest(now, wanted.index - 1, [&](const EntryMark& entry) { return entry.name == before; });
    if (found) at = *found + 1;
  }
  const bool isNew = at < now.size() && !HasName(wanted.siblings, now[at].name);
  return isNew ? std::optional(at) : std::nullopt;
}

}  // namespace

MenuPlace PlaceIn(const MenuItem& menu, const MenuItem* selected) {
  MenuPlace place;
  for (const MenuItem* at = &menu; at->Parent() != nullptr; at = at->Parent()) place.menus.push_back(Mark(*at));
  std::reverse(place.menus.begin(), place.menus.end());
  if (selected != nullptr && selected->Parent() == &menu) place.entry = Mark(*selected);
  return place;
}

std::optional<std::size_t> FindEntry(const MarkedEntry& wanted, const std::vector<EntryMark>& now) {
  const EntryMark& mark = wanted.siblings[wanted.index];
  for (const auto field : {&EntryMark::name, &EntryMark::oid, &EntryMark::title}) {
    if ((mark.*field).empty()) continue;
    const auto found = Nearest(now, wanted.index, [&](const EntryMark& entry) {
      // Another entry that was there before is not this one by another name.
      const bool isOther = field != &EntryMark::name && HasName(wanted.siblings, entry.name);
      return entry.*field == mark.*field && !isOther;
    });
    if (found) return found;
  }
  return NewInItsPlace(wanted, now);
}

FoundPlace FindPlaceIn(const MenuItem& root, const MenuPlace& place) {
  FoundPlace found;
  const MenuItem* menu = &root;
  for (const MarkedEntry& wanted : place.menus) {
    const auto index = FindEntry(wanted, MarksOf(*menu));
    if (!index || menu->Children()[*index]->IsLeaf()) {
      // The line that stands where the menu was.
      if (!menu->Children().empty()) {
        found.entry = menu->Children()[std::min(index.value_or(wanted.index), menu->Children().size() - 1)].get();
      }
      return found;
    }
    menu = menu->Children()[*index].get();
    found.menus.push_back(menu);
  }
  if (!place.entry || menu->Children().empty()) return found;
  const auto index = FindEntry(*place.entry, MarksOf(*menu));
  found.entry = menu->Children()[std::min(index.value_or(place.entry->index), menu->Children().size() - 1)].get();
  return found;
}

}  // namespace simulator
