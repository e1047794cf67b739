#include "simulator/text_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

namespace simulator {

std::optional<std::string> ReadTextFile(const std::filesystem::path& file) {
  std::error_code error;
  // Only a plain file: a folder reads as an empty one, and a pipe might never end.
  if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
  std::ifstream input(file, std::ios::binary);
  if (!input) return std::nullopt;
  std::string bytes{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  if (input.bad()) return std::nullopt;
  return bytes;
}

namespace {

// A file may hold secrets.
std::filesystem::perms RightsFor(const std::filesystem::path& file, FileRights rights) {
  using std::filesystem::perms;
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  const bool areKept = rights == FileRights::kAsBefore && std::filesystem::is_regular_file(status);
  return areKept ? status.permissions() : perms::owner_read | perms::owner_write;
}

}  // namespace

bool ReplaceTextFile(const std::filesystem::path& file, std::string_view bytes, const SyncFile& sync,
                     FileRights rights) {
  std::filesystem::path fresh = file;
  fresh += ".new";
  std::error_code error;
  {
    std::filesystem::remove(fresh, error);
    std::ofstream output(fresh, std::ios::binary | std::ios::trunc);
    std::filesystem::permissions(fresh, RightsFor(file, rights), error);
    output.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    output.close();
    if (output.fail() || (sync && !sync(fresh))) {
      std::filesystem::remove(fresh, error);
      return false;
    }
  }
  std::filesystem::rename(fresh, file, error);
  if (error) {
    std::filesystem::remove(fresh, error);
    return false;
  }
  // The file has its new bytes whatever comes of this; which of the two would be found after the power failed is open.
  if (sync) sync(file.has_parent_path() ? file.parent_path() : ".");
  return true;
}

bool ForEachLine(std::string_view bytes, const std::function<bool(std::size_t number, std::string_view line)>& visit) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  for (std::size_t number = 1; !bytes.empty(); ++number) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!visit(number, line)) return false;
  }
  return true;
}

}  // namespace simulator
