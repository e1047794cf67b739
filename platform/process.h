// Starting other programs.
#pragma once

#include "base/wide_string.h"

#include <cstdint>

namespace platform {

// Starts a program with a command line and does not wait for it. 0 on success, else the system's error code
// (2: no such file, 3: no such folder, 123: no name that a file can have, 193: not a program).
std::uint32_t StartProgram(const WideString& program, const WideString& arguments);

}  // namespace platform
