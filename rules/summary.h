// The configuration as lines to read.
#pragma once

#include "model/menu_model.h"

#include <vector>

namespace rules {

// The items below a menu, of a leaf the whole configuration: each menu's name, with its value where the menu is a
// property that shows one, below it its properties as "name: shown value", then its sub-menus in the same way.
std::vector<WideString> SummaryLines(model::MenuModel& model, const model::MenuItem& item);

}  // namespace rules
