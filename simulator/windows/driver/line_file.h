// A file of lines that another process goes on writing.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace simulator {

class LineFile {
 public:
  explicit LineFile(std::filesystem::path file) : file_(std::move(file)) {}

  // The whole lines since the last call.
  std::vector<std::string> NewLines();

 private:
  std::filesystem::path file_;
  std::streamoff read_ = 0;
};

}  // namespace simulator
