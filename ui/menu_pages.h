// The lines of a menu: its items in numbered pages, with the lines that lead from page to page.
#pragma once

#include "base/wide_string.h"
#include "model/menu_item.h"

#include <vector>

namespace ui {

inline constexpr int kMostLinesPerPage = 9;  // one digit key a line

struct MenuLine {
  enum class Kind { kItem, kBack, kMore, kEmpty, kNoItems };
  Kind kind = Kind::kEmpty;
  WideString text;
  model::MenuItem* item = nullptr;  // of kItem only

  bool IsSelectable() const {
    return kind == Kind::kItem ? !item->list.nonSelectable : kind == Kind::kBack || kind == Kind::kMore;
  }
};

struct MenuPages {
  std::vector<MenuLine> lines;
  int lastLine = -1;     // index of the last line that can be selected, -1: none
  int lastBackLine = 0;  // index of the last "...Back", 0: none

  const MenuLine* At(int index) const;  // null: there is no such line
  bool IsSelectable(int index) const;
  // The nearest line that can be selected, from this one towards the end (or the last line), or towards the start (or
  // -1).
  int SelectableFrom(int line) const;
  int SelectableUpTo(int line) const;
  // Then there is nothing to select. The one line of a menu without items is no heading: Down and Up do select it.
  bool HasOnlyHeadings() const;
};

// Items that are not displayed are left out. A numbered menu is padded to whole pages, by a full page when it fills
// its pages already. `pageSize` is at least 3: "...Back", an item, "More...".
MenuPages LayOutMenu(const model::MenuItem& menu, int pageSize);

// What an item's line says behind its number.
WideString ItemText(const model::MenuItem& item);

}  // namespace ui
