// Which values of a setting can make rules decide otherwise: a few, whatever it may hold.
#pragma once

#include "authoring/checks/survey.h"

#include <optional>
#include <vector>

namespace authoring {

struct MatteringValues {
  std::vector<WideString> values;   // each once
  std::optional<WideString> other;  // the one among them that stands for all that nothing asks for
};

// More values of one setting than this are not counted out: there are too many cases then in any case.
inline constexpr std::size_t kMostMatteringValues = 4096;

// Of the setting with this OID, which rules compare with `wanted`: all that it can hold, on this device or any other,
// comes down to one of the values. `property` reads its texts; null: nothing does, they are taken as they are.
MatteringValues ValuesThatMatter(const Survey& survey, WideStringView oid, const values::PropertyDescriptor* property,
                                 const std::vector<WideString>& wanted);

}  // namespace authoring
