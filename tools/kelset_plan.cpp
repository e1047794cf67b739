// kelset plan: what would be set; kelset verify: what is not as wanted.
#include "authoring/json_text.h"
#include "tools/kelset_report.h"
#include "tools/kelset_settings.h"

namespace tools {
namespace {

struct PlanCommandOptions {
  DeviceOptions device;
  SettingsOptions settings;
  Answer answer = Answer::kText;
  settings::PlanOptions plan;
};

int RunPlan(const PlanCommandOptions& options, SetStreams& streams) {
  const auto configuration = LoadDevice(options.device, streams);
  auto wanted = configuration ? LoadWanted(options.settings, *configuration, streams) : std::nullopt;
  if (!wanted) return kUnusable;
  const settings::Plan plan = settings::MakePlan(*configuration, std::move(*wanted), options.plan);
  if (options.answer == Answer::kJson) {
    authoring::WriteJson(ToJson(plan), streams.out);
  } else {
    PrintPlan(plan, streams.out);
  }
  return plan.refusals.empty() ? kFine : kFound;
}

int RunVerify(const PlanCommandOptions& options, SetStreams& streams) {
  const auto configuration = LoadDevice(options.device, streams);
  const auto wanted = configuration ? LoadWanted(options.settings, *configuration, streams) : std::nullopt;
  if (!wanted) return kUnusable;
  authoring::Trial trial(*configuration);
  const auto differences = settings::FindDifferences(trial, *wanted);
  if (options.answer == Answer::kJson) {
    authoring::WriteJson(ToJson(*wanted, differences), streams.out);
  } else {
    PrintDifferences(*wanted, differences, streams.out);
  }
  return differences.empty() ? kFine : kFound;
}

}  // namespace

void DescribePlan(Command command, SetStreams& streams) {
  const auto options = std::make_shared<PlanCommandOptions>();
  command.Remarks(
      "Nothing is set. Values are shown as the device has them.\n"
      "Exit status: 0 all of it can be set, or is as wanted, 1 some of it is refused, 2 unusable arguments or files.\n"
      "Example: kelset plan examples/small small.yaml");
  AddDeviceOptions(command, options->device);
  AddSettingsOptions(command, options->settings);
  command.Flag("--hidden", options->plan.hidden, "let entries be set that rules hide now");
  AddAnswerOption(command, options->answer);
  command.Do([options, &streams] { return RunPlan(*options, streams); });
}

void DescribeVerify(Command command, SetStreams& streams) {
  const auto options = std::make_shared<PlanCommandOptions>();
  command.Remarks(
      "Exit status: 0 all is as wanted, 1 something differs, 2 unusable arguments or files.\n"
      "Example: kelset verify examples/small small.yaml");
  AddDeviceOptions(command, options->device);
  AddSettingsOptions(command, options->settings);
  AddAnswerOption(command, options->answer);
  command.Do([options, &streams] { return RunVerify(*options, streams); });
}

}  // namespace tools
