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

// Returns when what was written to a file or folder cannot be lost with the power; false when it may be.
using SyncFile = std::function<bool(const std::filesystem::path& file)>;

// Who may use a file that takes another's place: those who could use that one, or its owner alone, who alone may use a
// file that is new.
enum class FileRights { kAsBefore, kOwners };

// True once the file holds exactly `bytes`, after `sync` if there is one; until then, and on failure, it is what it
// was.
bool ReplaceTextFile(const std::filesystem::path& file, std::string_view bytes, const SyncFile& sync = {},
                     FileRights rights = FileRights::kAsBefore);

// Calls `visit` with the number, from 1, of each line and the line without its end, until one call answers false; a
// byte order mark is passed over. Returns whether every call answered true.
bool ForEachLine(std::string_view bytes, const std::function<bool(std::size_t number, std::string_view line)>& visit);

}  // namespace simulator
