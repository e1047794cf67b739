// Everything that can be said about a configuration before a terminal does.
#pragma once

#include "authoring/finding.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace authoring {

struct CheckOptions {
  bool proofs = true;
  // Told now and then how many of how many entries are done.
  std::function<void(std::size_t done, std::size_t all)> progress;
};

// In the order of the file; what comments silence is left out.
std::vector<Finding> CheckConfiguration(const Configuration& configuration, const CheckOptions& options = {});

}  // namespace authoring
