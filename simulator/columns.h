// Lines of columns that tabs separate. In a column "\t", "\n", "\\" and "\uXXXX" stand for a tab, a line feed, a
// backslash and any UTF-16 unit.
#pragma once

#include "base/wide_string.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

// A line that is empty, blank or begins with "#" says nothing.
bool IsComment(std::string_view line);

// The texts of a line's columns, at least one. Nothing when a backslash begins no escape.
std::optional<std::vector<WideString>> SplitColumns(std::string_view line);

// Reads back as `columns`, and never as a comment.
std::string JoinColumns(const std::vector<WideString>& columns);

}  // namespace simulator
