// Where something stands in a text, as an editor counts.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <cstdint>

namespace config {

// Both from 1; a column is a character, whatever its width. Line 0: nowhere in particular.
struct TextPlace {
  std::uint32_t line = 0;
  std::uint32_t column = 0;

  friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

// Of the unit with that index, or of the text's end. The mark that a file may begin with is no character.
TextPlace PlaceIn(WideStringView text, std::size_t at);

// "12:5".
WideString TextOf(const TextPlace& place);

}  // namespace config
