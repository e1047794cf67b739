#include "settings/journal.h"

#include "base/utf8.h"
#include "simulator/text_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <system_error>

namespace settings {
namespace {

using nlohmann::ordered_json;

constexpr int kVersion = 1;

// A device's text may hold what is no character: units as they are.
ordered_json UnitsOf(const WideString& text) {
  std::string utf8 = base::ToUtf8(text);
  if (base::FromUtf8(utf8) == text) return utf8;
  return std::vector<unsigned>(text.begin(), text.end());
}

WideString TextOf(const ordered_json& json) {
  if (json.is_string()) return base::FromUtf8(json.get<std::string>());
  WideString text;
  for (const unsigned unit : json.get<std::vector<unsigned>>()) text.push_back(static_cast<char16_t>(unit));
  return text;
}

std::string LineOf(const ordered_json& json) { return json.dump() + "\n"; }

// One line of a Set; empty when its secret cannot be sealed.
std::string LineOf(const PlannedSet& set, const Seal& seal) {
  ordered_json json;
  json["name"] = set.name;
  json["oid"] = UnitsOf(set.oid);
  json["type"] = UnitsOf(set.type);
  json["origin"] = static_cast<int>(set.origin);
  json["causes"] = set.causes;
  json["secret"] = set.isSecret;
  const auto put = [&](const char* name, const WideString& text) {
    if (set.isSecret) {
      json[name] = seal.Close(UnitsOf(text).dump());
      return !json[name].get<std::string>().empty();
    }
    json[name] = UnitsOf(text);
    return true;
  };
  const bool isPut = put("value", set.value) && (!set.before || put("before", *set.before));
  return isPut ? LineOf(json) : std::string();
}

std::optional<WideString> ValueIn(const ordered_json& json, bool isSecret, const Seal& seal) {
  if (!isSecret) return TextOf(json);
  const auto opened = seal.Open(json.get<std::string>());
  if (!opened) return std::nullopt;
  return TextOf(ordered_json::parse(*opened));
}

// Nothing when its secret cannot be opened.
std::optional<PlannedSet> SetIn(const ordered_json& json, const Seal& seal) {
  PlannedSet set;
  set.name = json.at("name");
  set.oid = TextOf(json.at("oid"));
  set.type = TextOf(json.at("type"));
  set.origin = static_cast<PlannedSet::Origin>(json.at("origin").get<int>());
  set.causes = json.at("causes").get<std::vector<std::size_t>>();
  set.isSecret = json.at("secret");
  auto value = ValueIn(json.at("value"), set.isSecret, seal);
  if (!value) return std::nullopt;
  set.value = std::move(*value);
  if (!json.contains("before")) return set;
  set.before = ValueIn(json.at("before"), set.isSecret, seal);
  if (!set.before) return std::nullopt;
  return set;
}

// Reads one line after the other into a record.
class JournalReader {
 public:
  JournalReader(const Seal& seal, JournalRecord& record) : seal_(seal), record_(record) {}

  // Empty, or what is wrong with the line.
  std::string Take(const ordered_json& json) {
    if (!hasHead_) return TakeHead(json);
    if (record_.sets.size() < expected_) return TakeSet(json);
    if (json.contains("begin")) {
      record_.begun = std::max(record_.begun, json.at("end").get<std::size_t>());
    } else if (json.contains("done")) {
      record_.codes.resize(json.at("done").get<std::size_t>());
      for (const auto& code : json.at("codes")) record_.codes.push_back(code);
    } else {
      record_.ended = record_.ended || json.contains("ended");
      record_.undoing = record_.undoing || json.contains("undoing");
      record_.undone = record_.undone || json.contains("undone");
    }
    const bool isSound = record_.begun <= record_.sets.size() && record_.codes.size() <= record_.begun;
    return isSound ? "" : "it counts more Sets than there are";
  }

  bool HasHead() const { return hasHead_; }

 private:
  std::string TakeHead(const ordered_json& json) {
    if (!json.contains("kelset") || json.at("kelset") != kVersion) return "this is no journal";
    hasHead_ = true;
    record_.head.device = json.at("device");
    record_.head.source = json.at("source");
    for (const auto& event : json.at("events")) record_.head.events.push_back(TextOf(event));
    record_.head.needsRestart = json.at("needsRestart");
    expected_ = json.at("sets");
    record_.isWhole = expected_ == 0;
    return {};
  }

  std::string TakeSet(const ordered_json& json) {
    auto set = SetIn(json, seal_);
    if (!set) return "its secrets were sealed by another key";
    record_.sets.push_back(std::move(*set));
    record_.isWhole = record_.sets.size() == expected_;
    return {};
  }

  const Seal& seal_;
  JournalRecord& record_;
  bool hasHead_ = false;
  std::size_t expected_ = 0;
};

}  // namespace

bool Journal::Write(const std::string& text) {
  if (step_ && !step_()) return false;
  const bool isWritten = file_.Append(text) && file_.Sync();
  return isWritten && (!step_ || step_());
}

std::string Journal::Create(const std::filesystem::path& file, const JournalHead& head,
                            const std::vector<PlannedSet>& sets) {
  ordered_json json;
  json["kelset"] = kVersion;
  json["device"] = head.device;
  json["source"] = head.source;
  json["events"] = ordered_json::array();
  for (const WideString& event : head.events) json["events"].push_back(UnitsOf(event));
  json["needsRestart"] = head.needsRestart;
  json["sets"] = sets.size();
  std::string text = LineOf(json);
  for (const PlannedSet& set : sets) {
    const std::string line = LineOf(set, seal_);
    if (line.empty()) return file.string() + ": a secret cannot be sealed for it";
    text += line;
  }
  std::string problem = file_.Create(file);
  if (!problem.empty() || Write(text)) return problem;
  std::error_code error;
  std::filesystem::remove(file, error);
  return file.string() + ": cannot be written";
}

namespace {

// `size`: of the lines that are whole.
std::string Read(const std::filesystem::path& file, const Seal& seal, JournalRecord& record, std::size_t& size) {
  const auto bytes = simulator::ReadTextFile(file);
  if (!bytes) return file.string() + ": cannot be read";
  JournalReader reader(seal, record);
  std::string problem;
  std::string_view whole = *bytes;
  whole = whole.substr(0, whole.rfind('\n') + 1);
  simulator::ForEachLine(whole, [&](std::size_t number, std::string_view line) {
    try {
      problem = reader.Take(ordered_json::parse(line));
    } catch (const ordered_json::exception&) {
      problem = "this is no line of a journal";
    }
    if (!problem.empty()) problem = file.string() + ":" + std::to_string(number) + ": " + problem;
    return problem.empty();
  });
  if (problem.empty() && !reader.HasHead()) problem = file.string() + ": this is no journal";
  size = whole.size();
  return problem;
}

}  // namespace

std::string ReadJournal(const std::filesystem::path& file, const Seal& seal, JournalRecord& record) {
  std::size_t size = 0;
  return Read(file, seal, record, size);
}

std::string Journal::Open(const std::filesystem::path& file, JournalRecord& record) {
  std::size_t size = 0;
  const std::string problem = Read(file, seal_, record, size);
  return problem.empty() ? file_.Open(file, size) : problem;
}

bool Journal::Begin(std::size_t first, std::size_t end) {
  return Write(LineOf(ordered_json{{"begin", first}, {"end", end}}));
}

bool Journal::Done(std::size_t first, const std::vector<platform::ResultCode>& codes) {
  return Write(LineOf(ordered_json{{"done", first}, {"codes", codes}}));
}

}  // namespace settings
