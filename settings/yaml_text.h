// Texts as a settings file has them.
#pragma once

#include "base/wide_string.h"

#include <optional>
#include <string>

namespace settings {

// One line of YAML that reads as exactly this text, in quotes where it needs them. Nothing for what no such line can
// hold: a surrogate without its partner.
std::optional<std::string> YamlText(WideStringView text);

// For people, behind a "#": what would end the line or cannot be seen is a blank.
std::string CommentText(WideStringView text);

}  // namespace settings
