// What a person's terminal can do, and signs of life for one who waits.
#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

namespace tools {

// Standard output is a terminal that wants colours: NO_COLOR is not set.
bool WantsColours();
bool IsErrorATerminal();

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
