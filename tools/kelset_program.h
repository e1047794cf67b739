// The program `kelset`: sets terminals without anyone at the keypad.
#pragma once

#include "tools/command.h"

#include <ostream>
#include <string>
#include <vector>

namespace tools {

// Exit statuses beside those of every command, of which kFound means here: some settings are refused, or differ.
inline constexpr int kDeviceFailed = 3;  // on the way; the journal says where
inline constexpr int kOccupied = 4;      // another program works on the device

struct SetStreams {
  std::ostream& out;
  std::ostream& errors;
  bool watched = false;  // a person sees `errors`
};

// Each describes one command.
void DescribeExport(Command command, SetStreams& streams);
void DescribePlan(Command command, SetStreams& streams);
void DescribeVerify(Command command, SetStreams& streams);
void DescribeApply(Command command, SetStreams& streams);
void DescribeUndo(Command command, SetStreams& streams);
void DescribeResume(Command command, SetStreams& streams);

// Runs the program with arguments as a shell gives them, without its name.
int RunKelset(const std::vector<std::string>& arguments, SetStreams streams);

}  // namespace tools
