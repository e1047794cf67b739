// "OID|type|value": a setting and what it is to become, as configurations write it.
#pragma once

#include "base/wide_string.h"

#include <optional>

namespace model {

struct SetTriple {
  WideString oid;
  WideString type;
  WideString value;  // all that follows the second bar; may be empty
};

// Nothing unless there are two bars with an OID and a type before them.
std::optional<SetTriple> ParseSetTriple(WideStringView text);

}  // namespace model
