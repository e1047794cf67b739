// Paths as they are printed: of a longer one only its end. Held whole for every entry of menus that lie very deep,
// paths would need far more room than the menus themselves.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace authoring {

// Then no further name is taken.
inline constexpr std::size_t kMostOfAPath = 1000;

// "...\Network\Addresses". `nameBefore` answers the names from the last one on, and nothing behind the first.
template <typename NameBefore>
WideString ShownPath(NameBefore nameBefore) {
  std::vector<WideStringView> names;
  std::size_t length = 0;
  for (std::optional<WideStringView> name = nameBefore(); name; name = nameBefore()) {
    const bool isEnough = length > kMostOfAPath;
    names.push_back(isEnough ? u"..." : *name);
    if (isEnough) break;
    length += name->size() + 1;
  }
  WideString path;
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (!path.empty()) path.push_back(u'\\');
    path.append(*name);
  }
  return path;
}

}  // namespace authoring
