// Plays UI scripts on a copy of a configuration's storage, as the simulated terminal does.
#pragma once

#include "authoring/play_session.h"

#include <string>

namespace authoring {

struct Replay {
  std::string printed;
  std::string problem;  // why the script could not be played to its end; empty: it was
};

// `name` stands before messages. Comments of the form "# device: LINE" give the device a value before the start. The
// terms' folder is written to.
Replay PlayScript(const PlayTerms& terms, const std::string& script, const std::string& name);

// The first line in which two outputs differ, in words; empty when they are the same.
std::string FirstDifference(const std::string& expected, const std::string& printed);

}  // namespace authoring
