#include "simulator/way_back.h"

#include "app/kel_config_app.h"
#include "platform/host/desktop.h"
#include "platform/messages.h"
#include "ui/menu_list.h"
#include "ui/menu_pages.h"

#include <algorithm>
#include <cstdlib>

namespace simulator {
namespace {

using model::MenuItem;
using platform::host::KeyStroke;
namespace key = platform::key;

// Menus that lie deeper than anybody goes, and their lines: more than that leads nowhere.
constexpr int kMostKeys = 2000;

KeyStroke Press(std::uint16_t virtualKey) { return {virtualKey, 0, false, false}; }

// The index of the item's line among those of its menu, or of the nearest one above or below that can be selected.
std::optional<int> LineOf(const ui::MenuPages& pages, const MenuItem& menu, const MenuItem& item, bool exactly) {
  const auto& children = menu.Children();
  const auto positionOf = [&](const MenuItem* wanted) {
    return std::find_if(children.begin(), children.end(), [&](const auto& child) { return child.get() == wanted; }) -
           children.begin();
  };
  const auto wanted = positionOf(&item);
  std::optional<int> nearest;
  std::ptrdiff_t distance = 0;
  for (int index = 0; const ui::MenuLine* line = pages.At(index); ++index) {
    if (line->item == nullptr || !line->IsSelectable()) continue;
    const std::ptrdiff_t away = std::abs(positionOf(line->item) - wanted);
    if (nearest && away >= distance) continue;
    nearest = index;
    distance = away;
  }
  return exactly && distance != 0 ? std::nullopt : nearest;
}

}  // namespace

std::optional<KeyStroke> WayBack::NextKey(const app::CKelConfigApp& app) {
  const MenuItem* menu = app.CurrentMenu();
  const platform::WindowHandle focused = platform::FocusedWindow();
  // Something came in between: a box, a page of text.
  if (menu == nullptr || platform::IdOf(focused) != ui::kMenuListId || ++keys_ > kMostKeys) return std::nullopt;
  const auto list = platform::host::ListStateOf(focused);
  if (!list) return std::nullopt;

  const MenuItem* root = menu;
  for (; root->Parent() != nullptr; root = root->Parent()) {
  }
  const FoundPlace place = FindPlaceIn(*root, place_);
  const MenuItem* next = place.entry;
  bool enters = false;
  if (menu->Parent() != nullptr || !place.menus.empty()) {
    const auto here = std::find(place.menus.begin(), place.menus.end(), menu);
    if (menu->Parent() != nullptr && here == place.menus.end()) return std::nullopt;
    const auto below = menu->Parent() == nullptr ? place.menus.begin() : here + 1;
    enters = below != place.menus.end();
    if (enters) next = *below;
  }
  if (next == nullptr) return std::nullopt;

  const ui::MenuPages pages = ui::LayOutMenu(*menu, ui::kMostLinesPerPage);
  const auto exact = LineOf(pages, *menu, *next, true);
  const auto line = exact ? exact : LineOf(pages, *menu, *next, false);
  if (!line) return std::nullopt;
  if (list->selected != *line) return Press(list->selected < *line ? key::kDown : key::kUp);
  // A menu that cannot be entered now is stood on.
  if (!enters || !exact) return std::nullopt;
  if (entered_ == next) return std::nullopt;
  entered_ = next;
  return Press(key::kEnter);
}

}  // namespace simulator
