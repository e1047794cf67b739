// Waits for the disk.
#pragma once

#include <filesystem>

namespace simulator {

// Returns when all that was written to the file or folder is on its disk; false when it may not be. On a disk that
// knows no such order there is nothing to wait for.
bool SyncToDisk(const std::filesystem::path& file);

}  // namespace simulator
