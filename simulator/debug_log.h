// Debug lines: kept for a script, and written to a file.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <vector>

namespace simulator {

// From any thread.
class DebugLog {
 public:
  // Lines are kept for TakeLines() only when asked for: nobody takes them in a session of hours.
  explicit DebugLog(bool keepLines) : keepLines_(keepLines) {}

  // Starts the file afresh; false when it cannot be written.
  bool WriteTo(const std::filesystem::path& file);

  void Add(WideStringView line);
  std::vector<WideString> TakeLines();  // and forgets them

 private:
  const bool keepLines_;
  std::mutex mutex_;
  std::vector<WideString> lines_;
  std::ofstream file_;
};

}  // namespace simulator
