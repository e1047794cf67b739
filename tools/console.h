// Arguments and answers between a program and a person's terminal, and signs of life for one who waits.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace tools {

// What a program was started with. While it lives, std::cout and std::cerr take UTF-8, and what they write is the same
// on every system, line ends too.
class Console {
 public:
  Console(int count, char** arguments);  // as main() gets them
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  // Without the program's name, in UTF-8.
  const std::vector<std::string>& Arguments() const { return arguments_; }
  // Standard output is a terminal that wants colours: NO_COLOR is not set.
  bool WantsColours() const { return wantsColours_; }
  bool IsErrorATerminal() const { return isErrorATerminal_; }

 private:
  class Streams;

  std::unique_ptr<Streams> streams_;
  std::vector<std::string> arguments_;
  bool wantsColours_ = false;
  bool isErrorATerminal_ = false;
};

// NO_COLOR says so.
bool RefusesColours();

// `text` in the colour of an SGR number ("31"), plain when `colours` is off.
std::string Coloured(const std::string& text, const char* sgr, bool colours);

// Says on standard error what is being done once it has taken a second, and no more when nobody watches.
class Progress {
 public:
  Progress(std::ostream& errors, std::string what, bool watched);
  ~Progress();  // wipes its line
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Tell(std::size_t done, std::size_t all);

 private:
  using Clock = std::chrono::steady_clock;

  std::ostream& errors_;
  std::string what_;
  bool watched_;
  bool shown_ = false;
  Clock::time_point next_;
};

}  // namespace tools
