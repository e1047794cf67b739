// The storage's text files: read whole, replaced whole.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// Nothing when there is no such file, or it cannot be read.
std::optional<std::string> ReadTextFile(const std::filesystem::path& file);

// True once the file holds exactly `bytes`; until then, and on failure, it is what it was.
bool ReplaceTextFile(const std::filesystem::path& file, std::string_view bytes);

// Calls `visit` with the number, from 1, of each line and the line without its end, until one call answers false; a
// byte order mark is passed over. Returns whether every call answered true.
bool ForEachLine(std::string_view bytes, const std::function<bool(std::size_t number, std::string_view line)>& visit);

}  // namespace simulator
