// A storage in a temporary folder for one configuration after the other.
#pragma once

#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace fuzz {

// A device that knows the OIDs of the seeds.
inline constexpr const char* kDevice =
    "1.1\tInteger\t5\n1.2\tOctet String\ttext\n1.3\tIP Address\t10.0.0.1\n1.4\tReaderCmd\t1050\n1.5\tHex\tabcde\n"
    "1.2.840.10036.1.1.1.10.2\tInteger\t2\n1.2.840.10036.1.2.1.2.2\tInteger\t4\n";

struct Storage {
  std::filesystem::path root;

  Storage() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kel-fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    root = pattern;
    std::filesystem::create_directory(root / "Windows");
  }
  ~Storage() {
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
  }
  Storage(const Storage&) = delete;
  Storage& operator=(const Storage&) = delete;

  // The device too: whoever ran before may have set its values.
  void Write(std::string_view configuration) const {
    std::ofstream(root / "Windows/ovu.xml", std::ios::binary) << configuration;
    std::ofstream(root / "device.txt", std::ios::binary) << kDevice;
  }
};

}  // namespace fuzz
