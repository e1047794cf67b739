// The configuration as lines to read.
#pragma once

#include "model/menu_model.h"

#include <vector>

namespace rules {

// The items below a menu, of a leaf the whole configuration: each menu's name, below it its properties as
// "name: shown value", then its sub-menus in the same way.
std::vector<WideString> SummaryLines(model::MenuModel& model, const model::MenuItem& item);

}  // namespace rules
