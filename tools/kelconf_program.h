// The program `kelconf`: what a configuration does, before a terminal does it.
#pragma once

#include "tools/command.h"

#include <ostream>
#include <string>
#include <vector>

namespace tools {

struct Streams {
  std::ostream& out;
  std::ostream& errors;
  bool colours = false;  // `out` shows them
  bool watched = false;  // a person sees `errors`
};

// Each describes one command.
void DescribeCheck(Command command, Streams& streams);
void DescribeDiff(Command command, Streams& streams);
void DescribeFind(Command command, Streams& streams);
void DescribeTree(Command command, Streams& streams);
void DescribeWhy(Command command, Streams& streams);
void DescribeManual(Command command, Streams& streams);
void DescribeExplore(Command command, Streams& streams);

// Runs the program with arguments as a shell gives them, without its name.
int RunKelconf(const std::vector<std::string>& arguments, Streams streams);

}  // namespace tools
