// An explanation for another program to read; docs/kelconf-why.schema.json says what is in it.
#pragma once

#include "authoring/explanation.h"

#include <nlohmann/json_fwd.hpp>

namespace authoring {

nlohmann::ordered_json ToJson(const Explanation& explanation);

}  // namespace authoring
