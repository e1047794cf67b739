// A storage folder made from texts, gone with the object.
#pragma once

#include "authoring/configuration.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include <unistd.h>

namespace tests {

inline const std::filesystem::path kDemonstration = std::filesystem::path(KEL_EXAMPLES) / "terminal";
inline const std::filesystem::path kSmallExample = std::filesystem::path(KEL_EXAMPLES) / "small";
inline const std::filesystem::path kForklift = std::filesystem::path(KEL_EXAMPLES) / "forklift";

class StorageFolder {
 public:
  StorageFolder() {
    static std::atomic<int> count = 0;
    path_ = std::filesystem::path(testing::TempDir()) /
            ("kel_authoring_" + std::to_string(getpid()) + "_" + std::to_string(++count));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_ / "Windows");
  }
  ~StorageFolder() { std::filesystem::remove_all(path_); }
  StorageFolder(const StorageFolder&) = delete;
  StorageFolder& operator=(const StorageFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

  StorageFolder& Write(const std::string& name, std::string_view bytes) {
    std::ofstream(path_ / name, std::ios::binary | std::ios::trunc) << bytes;
    return *this;
  }
  // `groups`: what stands within the root, whose name is "R" and title "Main".
  StorageFolder& WriteMenu(std::string_view groups) {
    return Write("Windows/ovu.xml",
                 "<GROUP name=\"R\"><DisplayName>Main</DisplayName>\n" + std::string(groups) + "</GROUP>");
  }

  std::unique_ptr<authoring::Configuration> Load() const {
    auto loaded = authoring::Configuration::Load(path_);
    EXPECT_EQ("", loaded.problem);
    return std::move(loaded.configuration);
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tests
