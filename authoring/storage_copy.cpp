#include "authoring/storage_copy.h"

#include <array>
#include <atomic>
#include <chrono>
#include <fstream>
#include <random>
#include <string_view>
#include <system_error>

namespace authoring {
namespace {

namespace fs = std::filesystem;

// A folder that was named by mistake is not copied as a whole.
constexpr std::uintmax_t kMostBytes = 512u << 20;
constexpr int kMostFiles = 20'000;

bool IsProgram(const fs::path& file) {
  std::ifstream bytes(file, std::ios::binary);
  std::array<char, 4> head{};
  bytes.read(head.data(), head.size());
  const std::string_view start(head.data(), static_cast<std::size_t>(bytes.gcount()));
  return start.starts_with("#!") || start ==
                                        "\x7F"
                                        "ELF";
}

void ReplaceProgram(const fs::path& file) {
  std::error_code error;
  const auto permissions = fs::status(file, error).permissions();
  fs::remove(file, error);
  std::ofstream(file, std::ios::binary) << "#!/bin/sh\n";
  fs::permissions(file, permissions, error);
}

// Where a file that may not be written may not be removed either.
void RemoveAll(const fs::path& folder) {
  std::error_code error;
  fs::remove_all(folder, error);
  if (!error) return;
  for (fs::recursive_directory_iterator at(folder, error), end; at != end && !error; at.increment(error)) {
    fs::permissions(at->path(), fs::perms::owner_write, fs::perm_options::add, error);
  }
  fs::remove_all(folder, error);
}

fs::path MakeFolder() {
  std::random_device random;
  std::error_code error;
  const fs::path above = fs::temp_directory_path(error);
  for (int tries = 0; tries < 100 && !error; ++tries) {
    const fs::path folder = above / ("kelconf." + std::to_string(random()) + std::to_string(random()));
    if (!fs::create_directory(folder, error)) continue;
    fs::permissions(folder, fs::perms::owner_all, error);  // device values may be secrets
    return folder;
  }
  return {};
}

}  // namespace

StorageCopy::StorageCopy(const Configuration& configuration) : folder_(MakeFolder()), original_(folder_ / "original") {
  problem_ = folder_.empty() ? "there is no temporary folder to play in" : CopyAll(configuration);
}

StorageCopy::~StorageCopy() {
  if (!folder_.empty()) RemoveAll(folder_);
}

std::string StorageCopy::CopyAll(const Configuration& configuration) const {
  const TerminalCopy& terminal = configuration.Terminal();
  std::error_code error;
  fs::create_directory(original_, error);
  std::uintmax_t bytes = 0;
  int files = 0;
  for (fs::recursive_directory_iterator at(terminal.root, error), end; at != end && !error; at.increment(error)) {
    const fs::path target = original_ / at->path().lexically_relative(terminal.root);
    if (at->is_symlink(error)) continue;  // the terminal does not follow them either
    if (at->is_directory(error)) {
      fs::create_directory(target, error);
    } else if (at->is_regular_file(error)) {
      bytes += at->file_size(error);
      if (++files > kMostFiles || bytes > kMostBytes) {
        return terminal.root.string() + ": too large to be a terminal's storage";
      }
      fs::copy_file(at->path(), target, error);
      if (!error && IsProgram(target)) ReplaceProgram(target);
    }
  }
  if (!error && terminal.hasRegistry) {
    fs::copy_file(terminal.registryFile, original_ / "registry.reg", fs::copy_options::overwrite_existing, error);
  }
  return error ? terminal.root.string() + ": cannot be copied: " + error.message() : std::string();
}

fs::path StorageCopy::Fresh() const {
  const fs::path played = folder_ / "played";
  std::error_code error;
  RemoveAll(played);
  fs::copy(original_, played, fs::copy_options::recursive, error);
  return error ? fs::path() : played;
}

}  // namespace authoring
