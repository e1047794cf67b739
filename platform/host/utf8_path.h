// Names of files as texts, which are UTF-8 on every system. (The way back is path.string().)
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform::host {

inline std::filesystem::path PathOf(std::string_view utf8) { return std::u8string(utf8.begin(), utf8.end()); }

}  // namespace platform::host
