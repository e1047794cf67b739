// Where a menu list stands, in words that outlive its items: so the place is found again among items that replace them.
#pragma once

#include "base/wide_string.h"
#include "model/menu_item.h"
#include "ui/menu_pages.h"

#include <optional>
#include <vector>

namespace ui {

struct ListPlace {
  std::vector<WideString> menus;  // paths from the root's child down to the menu shown
  WideString entering;            // path of the item that is being entered; empty: none

  // The selected line; of an item its path too.
  int top = 0;
  int line = -1;
  MenuLine::Kind kind = MenuLine::Kind::kEmpty;
  WideString item;
};

// The paths of the menus below the root that lead to `menu`.
std::vector<WideString> WayTo(const model::MenuItem& menu);

// Null when there is none of that path.
model::MenuItem* ChildByPath(const model::MenuItem& menu, const WideString& path);

// The menu of the place, or of a way that has come to end early the nearest one above it.
model::MenuItem& FindMenu(const ListPlace& place, model::MenuItem& root);

// The line of the place's item, or of the same kind, that is nearest to where it was; when none is left, the last line
// up to there that can be selected. Nothing when no line can be.
std::optional<int> FindLine(const ListPlace& place, const MenuPages& pages);

}  // namespace ui
