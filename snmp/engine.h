// What an agent is to its managers: an id that stays, and a count of its starts (RFC 3411, RFC 3414). As long as both
// are kept, a manager's open session goes on when the agent was started again, however it had ended.
#pragma once

#include "simulator/text_file.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace snmp {

struct Engine {
  std::string id;  // octets
  std::int64_t boots = 1;
  bool operator==(const Engine&) const = default;
};

// Two digits an octet.
std::string HexOf(std::string_view octets);

// The file in a folder that keeps the engine of a storage, the same each time; empty where there is no folder.
std::filesystem::path EngineFileOf(const std::filesystem::path& root, const std::filesystem::path& folder);

// The engine of that file for this start, which is on disk when this returns: with one more boot, or a new one where
// there is no file yet. Nothing, and one line in `problem`, when the file is none of these or cannot be written.
std::optional<Engine> StartEngine(const std::filesystem::path& file, const simulator::SyncFile& sync,
                                  std::string& problem);

}  // namespace snmp
