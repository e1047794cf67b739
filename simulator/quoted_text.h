// Texts as dumps and effects show them.
#pragma once

#include "base/wide_string.h"

#include <string>

namespace simulator {

// In quotes, as UTF-8, with \\ \" \n \r \t for these five characters.
std::string Quoted(WideStringView text);

}  // namespace simulator
