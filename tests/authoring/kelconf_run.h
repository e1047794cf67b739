// kelconf in this process, as a shell would run it.
#pragma once

#include "tools/kelconf_program.h"

#include <sstream>
#include <string>
#include <vector>

namespace tests {

struct KelconfRun {
  int status = 0;
  std::string out;
  std::string errors;
};

inline KelconfRun RunKelconf(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream errors;
  const int status = tools::RunKelconf(arguments, {out, errors});
  return {status, out.str(), errors.str()};
}

}  // namespace tests
