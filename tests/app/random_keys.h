// Keys as a child presses them, and what must hold of the screen whatever was pressed.
#pragma once

#include "platform/host/display.h"

#include <cstdint>
#include <set>
#include <string>

namespace tests {

// The same number always gives the same key; all keys of the keypad occur, those that lead somewhere more often.
platform::host::KeyStroke KeyFor(std::uint32_t number);

// Empty, or what is wrong with the windows: too many of them, a selection outside of its list, or a focus that nothing
// has.
std::string ProblemOfTheWindows();

// The same, and a menu that is none of those that there are.
std::string ProblemOfTheScreen(const std::set<std::string>& menuTitles);

// Texts of all <DisplayName>s of an XML file.
std::set<std::string> DisplayNamesIn(const std::string& xml);

}  // namespace tests
