#include "simulator/debug_log.h"

#include "base/utf8.h"

#include <utility>

namespace simulator {

bool DebugLog::WriteTo(const std::filesystem::path& file) {
  file_.open(file, std::ios::binary | std::ios::trunc);
  return file_.is_open();
}

void DebugLog::Add(WideStringView line) {
  const std::lock_guard lock(mutex_);
  if (keepLines_) lines_.emplace_back(line);
  if (!file_.is_open()) return;
  // Lines of the log end as everywhere on this system.
  if (line.ends_with(u'\n')) line.remove_suffix(1);
  if (line.ends_with(u'\r')) line.remove_suffix(1);
  file_ << base::ToUtf8(line) << '\n' << std::flush;
}

std::vector<WideString> DebugLog::TakeLines() {
  const std::lock_guard lock(mutex_);
  return std::exchange(lines_, {});
}

}  // namespace simulator
