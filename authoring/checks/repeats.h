// What occurs a second time in a list.
#pragma once

#include <cstddef>
#include <unordered_map>

namespace authoring {

// Calls visit(first, again) for each item whose key, a small value, an earlier one has too; `first` is the first of
// these.
template <typename Items, typename KeyOf, typename Visit>
void ForEachRepeated(const Items& items, KeyOf keyOf, Visit visit) {
  // To compare so few with each other costs less than to remember them.
  constexpr std::size_t kFew = 16;
  const std::size_t count = std::size(items);
  if (count <= kFew) {
    for (std::size_t i = 1; i < count; ++i) {
      std::size_t first = 0;
      while (first < i && keyOf(items[first]) != keyOf(items[i])) ++first;
      if (first < i) visit(items[first], items[i]);
    }
    return;
  }
  std::unordered_map<decltype(keyOf(items[0])), std::size_t> known;
  for (std::size_t i = 0; i < count; ++i) {
    const auto [place, isNew] = known.emplace(keyOf(items[i]), i);
    if (!isNew) visit(items[place->second], items[i]);
  }
}

}  // namespace authoring
