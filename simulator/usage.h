// What kelterm --help prints, and its manual page is made from.
#pragma once

namespace simulator {

extern const char* const kUsage;

}  // namespace simulator
