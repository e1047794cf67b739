// A file that is its owner's alone and only grows: nothing that was written to it is lost once it is synced.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace settings {

class PrivateFile {
 public:
  PrivateFile() = default;
  ~PrivateFile();
  PrivateFile(PrivateFile&& other) noexcept;
  PrivateFile& operator=(PrivateFile&&) = delete;

  // Both: empty, or one line that says why not. A new file must not be there yet; its mode is 0600. Of an older one
  // what lies behind the first `size` bytes is cut off.
  std::string Create(const std::filesystem::path& file);
  std::string Open(const std::filesystem::path& file, std::size_t size);

  // Adds bytes at the end; false when not all of them went there.
  bool Append(std::string_view bytes);
  // Returns when not even a loss of power undoes what was appended; false when it may.
  bool Sync();

 private:
  int descriptor_ = -1;
};

// Bytes that nobody can guess; empty when the system has none.
std::string RandomBytes(std::size_t count);

// From now on no core of this process is written, whatever it dies of: secrets would be in it.
void LeaveNoCore();

}  // namespace settings
