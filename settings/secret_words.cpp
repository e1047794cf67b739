#include "settings/secret_words.h"

#include "base/utf8.h"
#include "simulator/text_file.h"

#include <algorithm>
#include <system_error>

namespace settings {
namespace {

namespace fs = std::filesystem;

bool IsName(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  });
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  return start == std::string_view::npos ? "" : text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

}  // namespace

std::string SecretWords::Read(const fs::path& file) {
  if (file.empty()) return {};
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (error || !fs::exists(status)) return file.string() + ": there is no such file";
  constexpr fs::perms kOthers = fs::perms::group_all | fs::perms::others_all;
  if ((status.permissions() & kOthers) != fs::perms::none) {
    return file.string() + ": others may read it; chmod 600 makes it its owner's alone";
  }
  const auto bytes = simulator::ReadTextFile(file);
  if (!bytes) return file.string() + ": cannot be read";
  std::string problem;
  simulator::ForEachLine(*bytes, [&](std::size_t number, std::string_view line) {
    line = Trimmed(line);
    if (line.empty() || line.front() == '#') return true;
    const std::size_t sign = line.find('=');
    const std::string_view name = Trimmed(line.substr(0, sign));
    const bool isWhole = sign != std::string_view::npos && IsName(name);
    const bool isNew = isWhole && words_.emplace(name, base::FromUtf8(Trimmed(line.substr(sign + 1)))).second;
    if (!isWhole) problem = "a line is NAME = SECRET";
    if (isWhole && !isNew) problem = "this name stands there twice";
    if (!problem.empty()) problem = file.string() + ":" + std::to_string(number) + ": " + problem;
    return problem.empty();
  });
  return problem;
}

std::optional<WideString> SecretWords::Find(WideStringView name, const Variables& variables) const {
  const std::string word = base::ToUtf8(name);
  if (!IsName(word)) return std::nullopt;
  if (const char* value = variables(("KELSET_SECRET_" + word).c_str())) return base::FromUtf8(value);
  const auto found = words_.find(word);
  return found == words_.end() ? std::nullopt : std::optional<WideString>(found->second);
}

}  // namespace settings
