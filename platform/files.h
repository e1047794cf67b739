// The terminal's files, by paths such as "\Windows\ovu.xml".
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// Nothing when the file cannot be opened, read or held.
std::optional<std::string> ReadWholeFile(WideStringView path);

// The same into memory of the caller's: `place` is asked once, for the size in bytes. False also when it gives null.
bool ReadWholeFile(WideStringView path, const std::function<char*(std::size_t size)>& place);

// A file written in order. What was there before stays until Commit() has succeeded, and for good when it does not.
// Where files have owners of their own, a new one is for its owner only; the terminal's have none.
class OutputFile {
 public:
  explicit OutputFile(WideStringView path);
  ~OutputFile();  // without Commit(): nothing was written
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  bool IsOpen() const;
  bool Write(std::string_view bytes);
  bool Commit();  // false when any write failed

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace platform
