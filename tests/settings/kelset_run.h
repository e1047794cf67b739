// kelset in this process, as a shell would run it.
#pragma once

#include "tools/kelset_program.h"

#include <sstream>
#include <string>
#include <vector>

namespace tests {

struct KelsetRun {
  int status = 0;
  std::string out;
  std::string errors;
};

inline KelsetRun RunKelset(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream errors;
  const int status = tools::RunKelset(arguments, {out, errors});
  return {status, out.str(), errors.str()};
}

}  // namespace tests
