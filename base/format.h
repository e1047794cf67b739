// printf-style formatting with formats that are only known at run time (they come from the string table).
#pragma once

#include "base/wide_string.h"

#include <concepts>
#include <cstdint>
#include <span>

namespace base {

// One argument of Format: a text, or an integer with the width of its type (so that %x of an int shows 32 bits).
class FormatArgument {
 public:
  template <std::integral T>
  FormatArgument(T number)  // NOLINT(google-explicit-constructor): arguments are written as in printf
      : number_(static_cast<std::int64_t>(number)), bits_(sizeof(T) * 8) {}
  FormatArgument(WideStringView text) : text_(text) {}     // NOLINT(google-explicit-constructor)
  FormatArgument(const WideString& text) : text_(text) {}  // NOLINT(google-explicit-constructor)
  FormatArgument(const char16_t* text) : text_(text) {}    // NOLINT(google-explicit-constructor)

  bool IsText() const { return bits_ == 0; }
  WideStringView Text() const { return text_; }
  std::int64_t Signed() const { return number_; }
  std::uint64_t Unsigned() const;

 private:
  WideStringView text_;
  std::int64_t number_ = 0;
  std::size_t bits_ = 0;
};

// Fills %s %d %i %u %c %x %X %% with flags (- 0 + blank #), width and precision. An argument of the other kind is
// shown as what it is (%s of a number gives its decimal text, %d of a text gives the text). A missing argument prints
// nothing; arguments left over are ignored. An unknown conversion is copied as it stands.
WideString FormatArguments(WideStringView format, std::span<const FormatArgument> arguments);

template <typename... Arguments>
WideString Format(WideStringView format, const Arguments&... arguments) {
  if constexpr (sizeof...(arguments) == 0) {
    return FormatArguments(format, {});
  } else {
    const FormatArgument list[] = {FormatArgument(arguments)...};
    return FormatArguments(format, list);
  }
}

}  // namespace base
