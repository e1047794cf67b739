// What the keys do now, for people who have the terminal on a PC.
#pragma once

#include "base/wide_string.h"

#include <vector>

namespace simulator {

// One line a key, for what has the focus: a menu, a choice, a field, a button, a page of text or a message. `inserts`:
// typing inserts. None is longer than kLegendColumns.
std::vector<WideString> KeypadLegend(bool inserts);

inline constexpr int kLegendColumns = 20;

}  // namespace simulator
