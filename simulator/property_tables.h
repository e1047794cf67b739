// The property server's tables, kept in tables.txt: one entry a line, table, key and text in columns.
#pragma once

#include "base/wide_string.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace simulator {

class PropertyTables {
 public:
  // Replaces what was held. The answer is empty, or one line that names the file and what is wrong with it; then the
  // tables are as before. A missing file holds no table.
  std::string Read(const std::filesystem::path& file);

  // Nothing when there is no such table or key; names are compared exactly. Of two lines for one key the last counts.
  std::optional<WideString> Find(const WideString& table, const WideString& key) const;

 private:
  std::map<std::pair<WideString, WideString>, WideString> texts_;
};

}  // namespace simulator
