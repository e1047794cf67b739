// Views of wide strings in test failures read as text.
#pragma once

#include "base/utf8.h"

#include <gtest/gtest.h>

#include <ostream>

namespace std {

inline void PrintTo(std::u16string_view text, std::ostream* out) { *out << 'u' << '"' << base::ToUtf8(text) << '"'; }

}  // namespace std
