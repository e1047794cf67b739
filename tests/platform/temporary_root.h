// A folder of its own for a test, as the terminal's storage; it goes with the object.
#pragma once

#include "platform/host/environment.h"

#include <gtest/gtest.h>

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace tests {

class TemporaryRoot {
 public:
  TemporaryRoot() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kel-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) ADD_FAILURE() << "no temporary folder";
    path_ = pattern;
  }
  ~TemporaryRoot() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryRoot(const TemporaryRoot&) = delete;
  TemporaryRoot& operator=(const TemporaryRoot&) = delete;

  const std::filesystem::path& Path() const { return path_; }

  void Write(const std::filesystem::path& name, const std::string& bytes) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << bytes;
  }
  std::string Read(const std::filesystem::path& name) const {
    std::ifstream input(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  }
  bool Has(const std::filesystem::path& name) const { return std::filesystem::exists(path_ / name); }

  platform::host::Environment Environment() const {
    platform::host::Environment environment;
    environment.root = path_;
    return environment;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tests
