// Wide strings in test failures read as UTF-8.
#pragma once

#include "base/utf8.h"

#include <gtest/gtest.h>

#include <ostream>

namespace std {

inline void PrintTo(const std::u16string& text, std::ostream* out) { *out << '"' << base::ToUtf8(text) << '"'; }
inline void PrintTo(std::u16string_view text, std::ostream* out) { *out << '"' << base::ToUtf8(text) << '"'; }

}  // namespace std
