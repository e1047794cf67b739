// What came of a run, for whoever started it. The user has been told.
#pragma once

#include "config/config_source.h"

#include <vector>

namespace app {

struct RunReport {
  bool isLoaded = true;  // false: there was no configuration to run on
  std::vector<config::SourceRefusal> refusals;
};

}  // namespace app
