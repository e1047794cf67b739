#include "ui/list_place.h"

#include <algorithm>
#include <cstdlib>

namespace ui {
namespace {

// Whether a line that can be selected is the place's.
bool IsLineOf(const ListPlace& place, const MenuLine& line) {
  if (line.kind != place.kind) return false;
  return line.item == nullptr || line.item->Path() == place.item;
}

}  // namespace

std::vector<WideString> WayTo(const model::MenuItem& menu) {
  std::vector<WideString> way;
  for (const model::MenuItem* on = &menu; on->Parent() != nullptr; on = on->Parent()) way.push_back(on->Path());
  std::reverse(way.begin(), way.end());
  return way;
}

model::MenuItem* ChildByPath(const model::MenuItem& menu, const WideString& path) {
  for (const auto& child : menu.Children()) {
    if (child->Path() == path) return child.get();
  }
  return nullptr;
}

model::MenuItem& FindMenu(const ListPlace& place, model::MenuItem& root) {
  model::MenuItem* menu = &root;
  for (const WideString& path : place.menus) {
    model::MenuItem* const child = ChildByPath(*menu, path);
    if (child == nullptr || child->IsLeaf()) break;
    menu = child;
  }
  return *menu;
}

std::optional<int> FindLine(const ListPlace& place, const MenuPages& pages) {
  std::optional<int> nearest;
  for (int index = 0; const MenuLine* const line = pages.At(index); ++index) {
    if (!line->IsSelectable() || !IsLineOf(place, *line)) continue;
    if (!nearest || std::abs(index - place.line) < std::abs(*nearest - place.line)) nearest = index;
  }
  if (nearest) return nearest;
  const int before = pages.SelectableUpTo(std::min(place.line, pages.lastLine));
  if (before >= 0) return before;
  return pages.lastLine < 0 ? std::nullopt : std::optional(pages.SelectableFrom(0));
}

}  // namespace ui
