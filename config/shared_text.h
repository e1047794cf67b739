// A text of any size that several hold; it lives until the last of them goes.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace config {

class SharedText {
 public:
  SharedText() = default;                    // the empty text
  explicit SharedText(WideStringView text);  // a copy
  SharedText(std::shared_ptr<const char16_t[]> units, std::size_t length);

  // Valid as long as any copy of this object is.
  WideStringView View() const { return {units_.get(), length_}; }

 private:
  std::shared_ptr<const char16_t[]> units_;
  std::size_t length_ = 0;
};

// The text of a UTF-8 file, whatever its bytes are. Nothing when the file cannot be read or its text cannot be held.
std::optional<SharedText> ReadTextFile(WideStringView path);

}  // namespace config
