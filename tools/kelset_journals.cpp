#include "tools/kelset_journals.h"

#include "base/string_table.h"
#include "base/utf8.h"
#include "platform/events.h"
#include "platform/kernel.h"
#include "simulator/demonstration.h"
#include "simulator/disk_sync.h"
#include "tools/kelset_device.h"
#include "tools/kelset_report.h"

#include <cstdio>
#include <ctime>
#include <iterator>

namespace tools {

namespace fs = std::filesystem;
using settings::SetResult;
using Kind = SetResult::Kind;

std::unique_ptr<HeldDevice> HeldDevice::Take(const fs::path& folder, SetStreams& streams, int& status) {
  std::unique_ptr<HeldDevice> held(new HeldDevice(folder));  // NOLINT: the constructor is private
  status = kUnusable;
  if (!held->lock_.Problem().empty()) {
    Complain(streams, held->lock_.Problem());
    return nullptr;
  }
  if (held->lock_.Other() != 0) {
    Complain(streams, folder.string() + ": process " + std::to_string(held->lock_.Other()) +
                          " works on this terminal; nothing was touched");
    status = kOccupied;
    return nullptr;
  }
  // Who starts the utility on this storage finds it running.
  held->lock_.Publish({WideString(LoadText(TextId::kConfigurationUtility))});
  return held;
}

std::unique_ptr<simulator::DeviceStore> HeldDevice::Open(SetStreams& streams, int& status) const {
  auto opened = simulator::DeviceStore::Open(folder_ / "device.txt");
  if (!opened.store) {
    status = Complain(streams, opened.problem);
    return nullptr;
  }
  opened.store->SyncWith(simulator::SyncToDisk);
  return std::move(opened.store);
}

namespace {

fs::path OwnFolder() {
  const fs::path state = simulator::StateFolder();
  return state.empty() ? fs::path() : state.parent_path() / "kelset";
}

}  // namespace

fs::path SealFile() {
  const fs::path folder = OwnFolder();
  return folder.empty() ? fs::path() : folder / "seal.key";
}

fs::path NewJournalFile(const fs::path& device) {
  const fs::path folder = OwnFolder() / "journals";
  std::error_code error;
  if (folder.is_relative() || (fs::create_directories(folder, error), error)) return {};
  char when[32] = {};
  const std::time_t now = std::time(nullptr);
  std::strftime(when, sizeof when, "%Y%m%d-%H%M%S", std::gmtime(&now));
  const std::string name = fs::absolute(device).lexically_normal().filename().string() + "-" + when;
  fs::path file = folder / (name + ".journal");
  for (int number = 2; fs::exists(file, error); ++number)
    file = folder / (name + "-" + std::to_string(number) + ".journal");
  return file;
}

void Conclude(const settings::JournalHead& head, bool restart, bool isJson, std::ostream& out) {
  for (const WideString& event : head.events) {
    platform::Event(event, false).Pulse();
    if (!isJson) out << "pulsed " << base::ToUtf8(event) << '\n';
  }
  if (!head.needsRestart) return;
  if (restart) platform::WarmReset();
  if (!isJson) {
    out << (restart ? "restarted the terminal\n"
                    : "the terminal is to be restarted for that; with --restart kelset does it\n");
  }
}

std::string Word(Kind kind) {
  switch (kind) {
    case Kind::kDone: return "set";
    case Kind::kRefused: return "refused";
    case Kind::kKeptOld: return "kept";
    case Kind::kLeftOut: return "left-out";
    case Kind::kFailed: return "failed";
    case Kind::kNotReached: return "not-reached";
    case Kind::kNotNeeded: return "not-needed";
    case Kind::kUnknown: return "unknown";
  }
  return {};
}

std::string Hexadecimal(platform::ResultCode code) {
  char text[sizeof "0x80004005"] = {};
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(code));
  return text;
}

void PrintResults(const std::vector<settings::PlannedSet>& sets, const settings::CarriedOut& carried, bool isUndo,
                  std::ostream& out) {
  for (std::size_t i = 0; i < sets.size(); ++i) {
    const settings::PlannedSet& set = sets[i];
    const SetResult& result = carried.results[i];
    const std::string before = set.before ? ShownText(*set.before, set.isSecret) : std::string("unknown");
    const std::string value = ShownText(set.value, set.isSecret);
    const std::string name = NameAndOid(set);
    switch (result.kind) {
      case Kind::kDone:
        out << "set      " << name << ": " << (isUndo ? value : before) << " -> " << (isUndo ? before : value) << '\n';
        break;
      case Kind::kRefused: out << "refused by the device (" << Hexadecimal(result.code) << ")  " << name << '\n'; break;
      case Kind::kKeptOld: out << "the device says yes and has another value  " << name << '\n'; break;
      case Kind::kLeftOut: out << "left out: it follows from what was refused  " << name << '\n'; break;
      case Kind::kFailed: out << "failed (" << Hexadecimal(result.code) << ")  " << name << '\n'; break;
      case Kind::kUnknown: out << "what stood before is not known  " << name << '\n'; break;
      case Kind::kNotReached:
        if (!isUndo) out << "not reached  " << name << '\n';
        break;
      case Kind::kNotNeeded: break;
    }
  }
}

}  // namespace tools
