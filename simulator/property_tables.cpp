#include "simulator/property_tables.h"

#include "simulator/columns.h"
#include "simulator/text_file.h"

#include <system_error>

namespace simulator {

std::string PropertyTables::Read(const std::filesystem::path& file) {
  std::map<std::pair<WideString, WideString>, WideString> texts;
  std::error_code error;
  const bool missing = !std::filesystem::exists(file, error) && !error;
  const auto bytes = missing ? std::string() : ReadTextFile(file);
  if (!bytes) return file.string() + ": cannot be read";
  std::string problem;
  ForEachLine(*bytes, [&](std::size_t number, std::string_view line) {
    if (IsComment(line)) return true;
    const auto columns = SplitColumns(line);
    if (!columns || columns->size() != 3) {
      problem = file.string() + ":" + std::to_string(number) + ": a line is table, key and text, separated by tabs";
      return false;
    }
    texts[{(*columns)[0], (*columns)[1]}] = (*columns)[2];
    return true;
  });
  if (problem.empty()) texts_ = std::move(texts);
  return problem;
}

std::optional<WideString> PropertyTables::Find(const WideString& table, const WideString& key) const {
  const auto found = texts_.find({table, key});
  if (found == texts_.end()) return std::nullopt;
  return found->second;
}

}  // namespace simulator
