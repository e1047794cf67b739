// The command line of kelterm.
#pragma once

#include "base/wide_string.h"

#include <filesystem>
#include <optional>
#include <string>

namespace simulator {

struct Options {
  enum class DisplayKind { kText, kNone };

  std::filesystem::path root;  // empty: the demonstration terminal
  int screenWidthPx = 240;
  int screenHeightPx = 320;
  DisplayKind display = DisplayKind::kText;
  std::string script;                // empty: none; "-": standard input
  std::string log;                   // empty: none
  std::optional<std::string> agent;  // answers the network; the text: at this place, where there is one
  std::string device;                // in place of the storage's, on the network; empty: none
  std::string credentials;           // the file that says who may ask, or as whom to ask; empty: none
  std::string restartOid;            // what restarts the device on the network; empty: a person
  bool truthValues = false;          // it has such in place of 1 and 0
  bool reset = false;
  bool watch = false;
  bool version = false;
  bool help = false;
  WideString commandLine;  // of the utility

  bool HasTextDisplay() const { return script.empty() && display == DisplayKind::kText; }
};

// Nothing, and one line in `problem`, when the arguments cannot be used.
std::optional<Options> ParseOptions(int count, char* const* arguments, std::string& problem);

}  // namespace simulator
