// The one table of the program's texts. The identifiers are part of the design: configurations and resources know
// these numbers.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <span>

namespace base {

enum class TextId : std::uint16_t {
#define TEXT_ENTRY(id, name, text) k##name = id,
#include "base/string_table.inc"
#undef TEXT_ENTRY
};

struct TextEntry {
  TextId id;
  WideStringView text;
};

// All entries, by ascending identifier.
std::span<const TextEntry> AllTexts();

// The text of an entry, at most 200 characters, valid for ever; empty when there is no such entry.
WideStringView LoadText(TextId id);

}  // namespace base

using base::LoadText;
using base::TextId;
