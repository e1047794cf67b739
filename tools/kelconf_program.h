// The program `kelconf`: what a configuration does, before a terminal does it.
#pragma once

#include <CLI/CLI.hpp>

#include <ostream>
#include <string>
#include <vector>

namespace tools {

// Exit statuses of every command.
inline constexpr int kFine = 0;
inline constexpr int kFound = 1;     // what was asked about is not in order, or there is none
inline constexpr int kUnusable = 2;  // arguments, files

struct Streams {
  std::ostream& out;
  std::ostream& errors;
  bool colours = false;  // `out` shows them
  bool watched = false;  // a person sees `errors`
};

// Each adds one command. Its callback sets `status`; both arguments live until the program ends.
using AddCommand = void (*)(CLI::App& program, Streams& streams, int& status);

void AddCheck(CLI::App& program, Streams& streams, int& status);
void AddDiff(CLI::App& program, Streams& streams, int& status);
void AddFind(CLI::App& program, Streams& streams, int& status);
void AddTree(CLI::App& program, Streams& streams, int& status);
void AddWhy(CLI::App& program, Streams& streams, int& status);
void AddManual(CLI::App& program, Streams& streams, int& status);
void AddExplore(CLI::App& program, Streams& streams, int& status);

// Runs the program with arguments as a shell gives them, without its name.
int RunKelconf(const std::vector<std::string>& arguments, Streams streams);

}  // namespace tools
