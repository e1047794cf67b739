#include "simulator/device_store.h"

#include "base/utf8.h"
#include "simulator/columns.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace simulator {
namespace {

constexpr int kMaxDelayMs = 60'000;
// The file is put in order when it holds this many more lines than values, so that it cannot grow without bound and
// each Set still costs one line.
constexpr std::size_t kMaxSuperseded = 4096;

template <typename Number>
bool ParseNumber(std::string_view digits, int radix, Number& number) {
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, radix);
  return error == std::errc() && end == digits.data() + digits.size();
}

bool ParseResultCode(std::string_view text, std::optional<platform::ResultCode>& code) {
  std::uint32_t number = 0;
  if (!text.starts_with("0x") || !ParseNumber(text.substr(2), 16, number)) return false;
  code = static_cast<platform::ResultCode>(number);
  return true;
}

bool ParseOption(std::string_view option, DeviceOptions& options) {
  if (option == "readonly") return options.readOnly = true;
  if (option == "null") return options.null = true;
  const std::size_t equals = option.find('=');
  if (equals == std::string_view::npos) return false;
  const std::string_view name = option.substr(0, equals);
  const std::string_view text = option.substr(equals + 1);
  if (name == "get") return ParseResultCode(text, options.get);
  if (name == "set") return ParseResultCode(text, options.set);
  return name == "delay" && ParseNumber(text, 10, options.delayMs) && options.delayMs >= 0 &&
         options.delayMs <= kMaxDelayMs;
}

bool ParseOptions(std::string_view text, DeviceOptions& options) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(','), text.size());
    if (!ParseOption(text.substr(0, end), options)) return false;
    if (end + 1 == text.size()) return false;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return true;
}

}  // namespace

std::optional<DeviceLine> ParseDeviceLine(std::string_view line, std::string& problem) {
  const auto columns = SplitColumns(line);
  if (!columns) {
    problem = "a backslash must begin \\t, \\n, \\\\ or \\uXXXX";
    return std::nullopt;
  }
  if (columns->size() < 3 || columns->size() > 4 || columns->front().empty()) {
    problem = "a line is OID, type, value and options, separated by tabs";
    return std::nullopt;
  }
  DeviceLine result{(*columns)[0], (*columns)[1], (*columns)[2], columns->size() > 3 ? (*columns)[3] : u"", {}};
  if (!ParseOptions(base::ToUtf8(result.optionsText), result.options)) {
    problem = "the options are readonly, null, get=0xHHHHHHHH, set=0xHHHHHHHH and delay=MS, separated by commas";
    return std::nullopt;
  }
  return result;
}

std::string FormatDeviceLine(const DeviceLine& line) {
  std::vector<WideString> columns = {line.oid, line.type, line.value};
  if (!line.optionsText.empty()) columns.push_back(line.optionsText);
  return JoinColumns(columns);
}

DeviceStore::DeviceStore(std::filesystem::path file) : file_(std::move(file)) {}

DeviceStore::Opened DeviceStore::Open(const std::filesystem::path& file) {
  auto store = std::make_unique<DeviceStore>(file);
  std::string problem = store->Read();
  if (!problem.empty()) return {nullptr, std::move(problem)};
  return {std::move(store), {}};
}

DeviceStore::~DeviceStore() {
  if (superseded_ > 0) Compact();
}

void DeviceStore::SyncWith(SyncFile sync) {
  const std::lock_guard lock(mutex_);
  sync_ = std::move(sync);
}

std::vector<DeviceLine> DeviceStore::AllLines() {
  const std::lock_guard lock(mutex_);
  std::vector<DeviceLine> lines;
  lines.reserve(lines_.size());
  for (const auto& [oid, line] : lines_) lines.push_back(line);
  return lines;
}

void DeviceStore::ShareFile() {
  const std::lock_guard lock(mutex_);
  shared_ = true;
}

std::string DeviceStore::Parse(std::string_view bytes, Lines& lines, std::size_t& superseded) {
  std::string problem;
  ForEachLine(bytes, [&](std::size_t number, std::string_view text) {
    if (IsComment(text)) return true;
    auto line = ParseDeviceLine(text, problem);
    if (!line) {
      problem = ":" + std::to_string(number) + ": " + problem;
      return false;
    }
    WideString oid = line->oid;
    superseded += lines.insert_or_assign(std::move(oid), std::move(*line)).second ? 0 : 1;
    return true;
  });
  return problem;
}

std::string DeviceStore::Read() {
  std::error_code error;
  if (!std::filesystem::exists(file_, error) && !error) return {};
  const auto bytes = ReadTextFile(file_);
  if (!bytes) return file_.string() + ": cannot be read";
  const std::string problem = Parse(*bytes, lines_, superseded_);
  return problem.empty() ? "" : file_.string() + problem;
}

bool DeviceStore::AreIn(const std::optional<std::string>& bytes) const {
  Lines current;
  std::size_t ignored = 0;
  return bytes && Parse(*bytes, current, ignored).empty() && current == lines_;
}

bool DeviceStore::IsAsInFile() {
  const std::lock_guard lock(mutex_);
  std::error_code error;
  if (!std::filesystem::exists(file_, error)) return lines_.empty();
  return AreIn(ReadTextFile(file_));
}

int DeviceStore::DelayMs(const WideString& oid) {
  const std::lock_guard lock(mutex_);
  const auto found = lines_.find(oid);
  return found == lines_.end() ? 0 : found->second.options.delayMs;
}

platform::ResultCode DeviceStore::Get(const WideString& oid, std::optional<WideString>& value) {
  const DeviceLine* line = Find(oid);
  value.reset();
  return line == nullptr ? platform::kFailed : Get(*line, value);
}

const DeviceLine* DeviceStore::Find(const WideString& oid) {
  const std::lock_guard lock(mutex_);
  const auto found = lines_.find(oid);
  return found == lines_.end() ? nullptr : &found->second;
}

platform::ResultCode DeviceStore::Get(const DeviceLine& line, std::optional<WideString>& value) {
  const std::lock_guard lock(mutex_);
  value.reset();
  const platform::ResultCode code = line.options.get.value_or(platform::kOk);
  if (code >= 0 && !line.options.null) value = line.value;
  return code;
}

platform::ResultCode DeviceStore::Set(const WideString& oid, const WideString& value) {
  return Set({Change{oid, value}});
}

platform::ResultCode DeviceStore::Set(const std::vector<Change>& changes) {
  const std::lock_guard lock(mutex_);
  platform::ResultCode result = platform::kOk;
  std::vector<DeviceLine> changed;
  changed.reserve(changes.size());
  for (const Change& change : changes) {
    const auto found = lines_.find(change.oid);
    if (found == lines_.end()) return platform::kFailed;
    const DeviceOptions& options = found->second.options;
    if (options.readOnly) return platform::kAccessDenied;
    const platform::ResultCode code = options.set.value_or(platform::kOk);
    if (code < 0) return code;
    if (result == platform::kOk) result = code;
    changed.push_back(found->second);
    changed.back().value = change.value;
  }
  if (!Write(changed)) return platform::kFailed;
  for (DeviceLine& line : changed) lines_.find(line.oid)->second = std::move(line);
  if (superseded_ > kMaxSuperseded + lines_.size()) Compact();
  return result;
}

bool DeviceStore::Write(const std::vector<DeviceLine>& changed) {
  if (changed.empty()) return true;
  if (!(changed.size() == 1 ? Append(changed.front()) : Rewrite(changed))) return false;
  superseded_ += changed.size();
  return true;
}

// Several lines cannot be made to count at once where they stand: the file is replaced by one that has them.
bool DeviceStore::Rewrite(const std::vector<DeviceLine>& changed) {
  auto bytes = ReadTextFile(file_);
  if (!bytes) return false;
  if (!bytes->empty() && !bytes->ends_with('\n')) bytes->push_back('\n');
  for (const DeviceLine& line : changed) bytes->append(FormatDeviceLine(line)).push_back('\n');
  return ReplaceTextFile(file_, *bytes, sync_);
}

// The new line is appended as a comment, its first character hidden by a "#". Putting that one character in its place
// makes the line count: at no moment does a part of it.
bool DeviceStore::Append(const DeviceLine& line) {
  std::fstream output(file_, std::ios::in | std::ios::out | std::ios::binary);
  output.seekg(0, std::ios::end);
  const std::streamoff oldSize = output.tellg();
  if (!output || oldSize < 0) return false;
  char last = '\n';
  if (oldSize > 0) {
    output.seekg(-1, std::ios::end);
    output.get(last);
  }
  const std::string text = FormatDeviceLine(line) + "\n";
  const std::streamoff start = oldSize + (last == '\n' ? 0 : 1);
  output.seekp(0, std::ios::end);
  if (last != '\n') output.put('\n');
  output.put('#').write(text.data() + 1, static_cast<std::streamsize>(text.size() - 1)).flush();
  // The rest is on disk before the character that makes it count.
  bool written = output && IsOnDisk();
  if (written) output.seekp(start).put(text.front()).flush();
  written = written && output.good() && IsOnDisk();
  output.close();
  if (!written) {
    std::error_code error;
    std::filesystem::resize_file(file_, static_cast<std::uintmax_t>(oldSize), error);
    return false;
  }
  return true;
}

// Failing is no harm: the file stays as it is. So it does when it says something else than this device: then somebody
// has edited it.
void DeviceStore::Compact() {
  superseded_ = 0;
  const auto bytes = shared_ ? std::nullopt : ReadTextFile(file_);
  if (!AreIn(bytes)) return;
  std::string tidy;
  std::unordered_set<WideString> written;
  ForEachLine(*bytes, [&](std::size_t, std::string_view text) {
    std::string problem;
    const auto line = IsComment(text) ? std::nullopt : ParseDeviceLine(text, problem);
    if (!line) {
      tidy.append(text).push_back('\n');
    } else if (written.insert(line->oid).second) {
      tidy.append(FormatDeviceLine(lines_.at(line->oid))).push_back('\n');
    }
    return true;
  });
  ReplaceTextFile(file_, tidy, sync_);
}

}  // namespace simulator
