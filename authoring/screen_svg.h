// A screen of character cells as a picture for a page: an inline SVG without scripts or fonts of its own.
#pragma once

#include "simulator/cell_grid.h"

#include <string>
#include <string_view>

namespace authoring {

// `label` says what it shows, for those who cannot see it. Its classes are those of kScreenStyles. What stands right of
// the device and on its lower edge is left out.
std::string ScreenSvg(const simulator::CellGrid& shown, std::string_view label);

// The style sheet that the pictures need, once a page.
extern const char* const kScreenStyles;

// For texts and for the values of attributes; what no page may hold is left out.
std::string EscapedHtml(std::string_view text);

}  // namespace authoring
