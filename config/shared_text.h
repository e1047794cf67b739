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
  // `units` holds kPadding units more than the text, which are 0.
  SharedText(std::shared_ptr<const char16_t[]> units, std::size_t length);

  // Valid as long as any copy of this object is.
  WideStringView View() const { return {units_.get(), length_}; }

 private:
  std::shared_ptr<const char16_t[]> units_;
  std::size_t length_ = 0;
};

// Bytes of UTF-8 with the memory that their text is to have: it is converted while it is read as a document.
struct Utf8Text {
  // The bytes stay where they are as long as this is in use.
  explicit Utf8Text(std::string_view outside);
  // Bytes that are not held beside their text: `read` asks once for the place of so many and puts them there. Nothing
  // when it answers false.
  using Place = std::function<char*(std::size_t size)>;
  static std::optional<Utf8Text> Read(const std::function<bool(const Place& place)>& read);

  // A unit for each byte and SharedText::kPadding more; the bytes may be the upper half.
  std::shared_ptr<char16_t[]> units;
  std::string_view bytes;

 private:
  explicit Utf8Text(std::size_t size);
};

// The bytes of a file, whatever they are. Nothing when it cannot be read or its text cannot be held.
std::optional<Utf8Text> ReadTextFile(WideStringView path);

}  // namespace config
