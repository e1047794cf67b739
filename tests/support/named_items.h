// Menu items made without a key: an item does not hold its texts, so somebody has to.
#pragma once

#include "model/menu_item.h"

#include <set>

namespace tests {

inline model::MenuItem& AddNamed(model::MenuItem& menu, WideStringView name) {
  static std::set<WideString, std::less<>> names;
  const WideStringView held = *names.emplace(name).first;
  return menu.AddChild(held, held, held);
}

}  // namespace tests
