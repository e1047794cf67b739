// kelset apply: plans, sets, reads back and reports.
#include "authoring/json_text.h"
#include "base/utf8.h"
#include "platform/host/utf8_path.h"
#include "tools/kelset_journals.h"
#include "tools/kelset_report.h"
#include "tools/kelset_settings.h"

#include <algorithm>

namespace tools {
namespace {

namespace fs = std::filesystem;
using platform::host::PathOf;
using settings::CarriedOut;
using settings::Plan;

struct ApplyOptions {
  DeviceOptions device;
  SettingsOptions settings;
  settings::PlanOptions plan;
  std::string journal;
  bool restart = false;
  Answer answer = Answer::kText;
};

struct Applied {
  Plan plan;
  settings::JournalHead head;
  fs::path journal;  // empty: nothing was to be set
  CarriedOut carried;

  int Status() const {
    if (carried.HasFailed()) return kDeviceFailed;
    return plan.refusals.empty() && carried.IsComplete() ? kFine : kFound;
  }
};

// Sets what there is to set. False, after it was said why, when nothing was touched.
bool CarryOutPlan(const ApplyOptions& options, const HeldDevice& held, Applied& applied, SetStreams& streams) {
  int status = kFine;
  const auto store = held.Open(streams, status);
  if (!store) return false;
  settings::Seal seal;
  const auto& sets = applied.plan.sets;
  const bool hasSecret = std::any_of(sets.begin(), sets.end(), [](const auto& set) { return set.isSecret; });
  std::string problem = hasSecret ? seal.Load(SealFile()) : std::string();
  applied.journal = options.journal.empty() ? NewJournalFile(PathOf(options.device.device)) : PathOf(options.journal);
  if (problem.empty() && applied.journal.empty()) {
    problem = "neither XDG_STATE_HOME nor HOME leads to a folder for the journal; name a file by --journal";
  }
  settings::Journal journal(seal);
  if (problem.empty()) problem = journal.Create(applied.journal, applied.head, sets);
  if (!problem.empty()) {
    Complain(streams, problem + "; nothing was touched");
    return false;
  }
  settings::StorageTarget target(*store);
  applied.carried = CarryOut(sets, target, journal);
  return true;
}

void PrintText(const Applied& applied, SetStreams& streams) {
  PrintResults(applied.plan.sets, applied.carried, false, streams.out);
  if (applied.plan.sets.empty()) streams.out << "nothing to set\n";
  for (const std::string& remark : applied.plan.remarks) streams.out << "the menus would say: " << remark << '\n';
  PrintRefusals(applied.plan, streams.out);
}

void PrintNext(const Applied& applied, SetStreams& streams) {
  if (applied.journal.empty()) return;
  const std::string file = applied.journal.string();
  if (applied.carried.HasFailed()) {
    Complain(streams, applied.carried.problem + "; the journal says where: " + file);
    Complain(streams, "\"kelset resume " + file + "\" goes on, \"kelset undo " + file + "\" takes back what was set");
  } else {
    streams.out << "journal " << file << "; \"kelset undo\" with it takes this back\n";
  }
}

nlohmann::ordered_json JsonOf(const Applied& applied, bool restart) {
  nlohmann::ordered_json json = ToJson(applied.plan);
  for (std::size_t i = 0; i < applied.plan.sets.size(); ++i) {
    const settings::SetResult& result = applied.carried.results[i];
    json["sets"][i]["result"] = Word(result.kind);
    json["sets"][i]["code"] = Hexadecimal(result.code);
  }
  json["journal"] = nullptr;
  if (!applied.journal.empty()) json["journal"] = applied.journal.string();
  json["restarted"] = restart && applied.head.needsRestart && !applied.carried.HasFailed();
  json["problem"] = applied.carried.problem;
  return json;
}

int Run(const ApplyOptions& options, SetStreams& streams) {
  int status = kUnusable;
  const fs::path folder = PathOf(options.device.device);
  const auto held = HeldDevice::Take(folder, streams, status);
  if (!held) return status;
  const auto configuration = LoadDevice(options.device, streams);
  auto wanted = configuration ? LoadWanted(options.settings, *configuration, streams) : std::nullopt;
  if (!wanted) return kUnusable;
  Applied applied;
  applied.plan = MakePlan(*configuration, std::move(*wanted), options.plan);
  applied.head = {fs::absolute(folder).string(), options.device.source, applied.plan.events, applied.plan.needsRestart};
  if (!applied.plan.sets.empty() && !CarryOutPlan(options, *held, applied, streams)) return kUnusable;
  const bool isJson = options.answer == Answer::kJson;
  if (isJson) {
    authoring::WriteJson(JsonOf(applied, options.restart), streams.out);
  } else {
    PrintText(applied, streams);
  }
  const authoring::InTerminal terminal(*configuration);
  if (!applied.carried.HasFailed()) Conclude(applied.head, options.restart, isJson, streams.out);
  if (!isJson) PrintNext(applied, streams);
  return applied.Status();
}

}  // namespace

void DescribeApply(Command command, SetStreams& streams) {
  const auto options = std::make_shared<ApplyOptions>();
  command.Remarks(
      "What is going to be done stands in a journal on disk before it is done: whatever happens, resume goes on with "
      "it "
      "and undo takes it back.\n"
      "Exit status: 0 all is set, or was as wanted, 1 some of it is refused, 2 unusable arguments or files and nothing "
      "was touched, 3 the device failed on the way, 4 another program works on the device.\n"
      "Example: kelset apply examples/small small.yaml");
  AddDeviceOptions(command, options->device);
  AddSettingsOptions(command, options->settings);
  command.Flag("--hidden", options->plan.hidden, "let entries be set that rules hide now");
  command.Flag("--restart", options->restart, "restart the terminal where settings need that");
  command.Text(
      "--journal", options->journal,
      "the journal's file, which must not be there yet; default: a new one in $XDG_STATE_HOME/kelset/journals");
  AddAnswerOption(command, options->answer);
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
