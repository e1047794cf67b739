#include "values/event_names.h"

#include <algorithm>

namespace values {

void EventNames::Add(WideStringView name) {
  const bool isKnown = std::find(names_.begin(), names_.end(), name) != names_.end();
  if (!name.empty() && !isKnown) names_.emplace_back(name);
}

}  // namespace values
