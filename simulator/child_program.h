// A program that runs beside this one, without a terminal of its own, and what it prints.
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace simulator {

class ChildProgram {
 public:
  // Starts `command`, the program's full name first. `whenDone` is called once, on a thread of this object's.
  ChildProgram(std::vector<std::string> command, std::function<void()> whenDone);
  // Ends the program if it still runs.
  ~ChildProgram();
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  bool IsDone() const { return done_; }
  // All that it printed on both of its outputs, in order. Once it is done.
  const std::string& Printed() const { return printed_; }

 private:
  bool Start(const std::vector<std::string>& command);

  int output_ = -1;
  int process_ = -1;  // a descriptor of it, which stays its own when its number is another's
  int number_ = -1;
  std::string printed_;
  std::atomic<bool> done_ = false;
  std::thread follower_;
};

// The program of this name beside the one that runs: in its own folder, as installed, or in the folder `built` next to
// that. Empty: there is none.
std::filesystem::path ProgramBeside(const std::string& name, const std::string& built);

}  // namespace simulator
