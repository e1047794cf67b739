// A text of any size that several hold; it lives until the last of them goes.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace config {

class SharedText {
 public:
  // So many units behind the text can be read too; they are 0.
  static constexpr std::size_t kPadding = 64;

  SharedText() : SharedText(WideStringView()) {}
  explicit SharedText(WideStringView text);  // a copy
  // From bytes of UTF-8, whatever they are.
  static SharedText FromUtf8(std::string_view bytes);
  // The same without holding the bytes beside the text: `read` asks once for the place of so many bytes and puts them
  // there. Nothing when it answers false.
  using Place = std::function<char*(std::size_t size)>;
  static std::optional<SharedText> FromUtf8(const std::function<bool(const Place& place)>& read);

  // Valid as long as any copy of this object is.
  WideStringView View() const { return {units_.get(), length_}; }

 private:
  SharedText(std::shared_ptr<const char16_t[]> units, std::size_t length);
  static SharedText Decoded(std::string_view bytes, std::shared_ptr<char16_t[]> units);

  std::shared_ptr<const char16_t[]> units_;
  std::size_t length_ = 0;
};

// The text of a UTF-8 file, whatever its bytes are. Nothing when the file cannot be read or its text cannot be held.
std::optional<SharedText> ReadTextFile(WideStringView path);

}  // namespace config
