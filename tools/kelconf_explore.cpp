// kelconf explore: plays the utility through everything that a configuration lets a person do.
#include "authoring/explorer.h"
#include "authoring/json_text.h"
#include "authoring/script_replay.h"
#include "authoring/storage_copy.h"
#include "platform/host/utf8_path.h"
#include "tools/console.h"
#include "tools/kelconf_source.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>

namespace tools {
namespace {

namespace fs = std::filesystem;

using authoring::Configuration;
using authoring::Exploration;
using authoring::GoalKind;
using nlohmann::ordered_json;

struct ExploreOptions {
  SourceOptions source;
  Format format = Format::kText;
  std::string scripts;
  std::string expect;
  std::size_t keys = authoring::ExploreTerms().mostKeys;
};

void PrintText(const Exploration& exploration, const Streams& streams) {
  for (std::size_t kind = 0; kind < authoring::kGoalKinds; ++kind) {
    if (exploration.all[kind] == 0) continue;
    streams.out << authoring::NameOf(static_cast<GoalKind>(kind)) << "s  " << exploration.reached[kind] << " of "
                << exploration.all[kind] << '\n';
  }
  for (const auto& one : exploration.unreached) {
    streams.out << (one.impossible ? "impossible: " : "not reached: ") << one.goal.Id() << "  (" << one.reason << ")\n";
  }
  if (exploration.tooDeep > 0) {
    streams.out << "not played: " << exploration.tooDeep << " entries behind more than " << authoring::kDeepestGoal
                << " menus\n";
  }
  streams.out << exploration.keys << " keys, " << exploration.scripts.size() << " scripts\n";
}

ordered_json ToJson(const Exploration& exploration) {
  ordered_json json;
  for (std::size_t kind = 0; kind < authoring::kGoalKinds; ++kind) {
    json["goals"].push_back({{"kind", authoring::NameOf(static_cast<GoalKind>(kind))},
                             {"reached", exploration.reached[kind]},
                             {"all", exploration.all[kind]}});
  }
  json["unreached"] = ordered_json::array();
  for (const auto& one : exploration.unreached) {
    json["unreached"].push_back({{"kind", authoring::NameOf(one.goal.kind)},
                                 {"path", one.goal.path},
                                 {"what", one.goal.what},
                                 {"reason", one.reason},
                                 {"impossible", one.impossible}});
  }
  json["scripts"] = ordered_json::array();
  for (const auto& script : exploration.scripts) {
    json["scripts"].push_back({{"name", script.name}, {"found", script.findings}});
  }
  json["tooDeep"] = exploration.tooDeep;
  json["keys"] = exploration.keys;
  json["complete"] = exploration.IsComplete();
  return json;
}

int Unusable(const std::string& problem, const Streams& streams) {
  streams.errors << "kelconf: " << problem << '\n';
  return kUnusable;
}

std::string ReadFile(const fs::path& file) {
  std::ifstream bytes(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(bytes), std::istreambuf_iterator<char>()};
}

// What a script prints on a fresh copy of the storage.
authoring::Replay PlayAgain(const Configuration& configuration, const authoring::StorageCopy& copy,
                            const std::string& script, const std::string& name) {
  return authoring::PlayScript({copy.Fresh(), configuration.CommandLine()}, script, name);
}

// Each play as a script, with what it prints beside it.
int WriteScripts(const Configuration& configuration, const Exploration& exploration, const fs::path& folder,
                 Streams& streams) {
  std::error_code error;
  fs::create_directories(folder, error);
  const authoring::StorageCopy copy(configuration);
  if (!copy.Problem().empty()) return Unusable(copy.Problem(), streams);
  for (const auto& script : exploration.scripts) {
    const auto replay = PlayAgain(configuration, copy, script.text, script.name);
    if (!replay.problem.empty()) return Unusable(replay.problem, streams);
    const fs::path file = folder / (script.name + ".script");
    const fs::path expected = folder / (script.name + ".expected");
    const bool written = (std::ofstream(file, std::ios::binary) << script.text).flush() &&
                         (std::ofstream(expected, std::ios::binary) << replay.printed).flush();
    if (!written) return Unusable(file.string() + ": cannot be written", streams);
  }
  return kFine;
}

// Plays the scripts of a folder and compares what they print with what they printed when they were written.
int Compare(const Configuration& configuration, const fs::path& folder, Streams& streams) {
  std::vector<fs::path> files;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".script") files.push_back(entry.path());
  }
  if (files.empty()) return Unusable(folder.string() + ": there are no scripts", streams);
  std::sort(files.begin(), files.end());
  const authoring::StorageCopy copy(configuration);
  if (!copy.Problem().empty()) return Unusable(copy.Problem(), streams);
  std::size_t different = 0;
  Progress progress(streams.errors, "played", streams.watched);
  for (std::size_t i = 0; i < files.size(); ++i) {
    progress.Tell(i, files.size());
    const auto replay = PlayAgain(configuration, copy, ReadFile(files[i]), files[i].string());
    fs::path expected = files[i];
    const std::string difference =
        authoring::FirstDifference(ReadFile(expected.replace_extension(".expected")), replay.printed);
    if (replay.problem.empty() && difference.empty()) continue;
    ++different;
    streams.out << (replay.problem.empty() ? files[i].string() + ": " + difference : replay.problem) << '\n';
  }
  streams.out << files.size() << " scripts, " << different << " differ\n";
  return different == 0 ? kFine : kFound;
}

int Run(const ExploreOptions& options, Streams& streams) {
  const auto configuration = LoadWellFormed(options.source, streams);
  if (!configuration) return kUnusable;
  if (!options.expect.empty()) return Compare(*configuration, platform::host::PathOf(options.expect), streams);
  Progress progress(streams.errors, "reached", streams.watched);
  authoring::ExploreTerms terms;
  terms.mostKeys = options.keys;
  terms.progress = [&progress](std::size_t reached, std::size_t all) { progress.Tell(reached, all); };
  const Exploration exploration = authoring::Explore(*configuration, terms);
  if (!exploration.problem.empty()) return Unusable(exploration.problem, streams);
  if (!options.scripts.empty()) {
    const int written = WriteScripts(*configuration, exploration, platform::host::PathOf(options.scripts), streams);
    if (written != kFine) return written;
  }
  if (options.format == Format::kJson) {
    authoring::WriteJson(ToJson(exploration), streams.out);
  } else {
    PrintText(exploration, streams);
  }
  return exploration.IsComplete() ? kFine : kFound;
}

}  // namespace

void DescribeExplore(Command command, Streams& streams) {
  const auto options = std::make_shared<ExploreOptions>();
  command.Remarks(
      "Exit status: 0 all was seen that can be, 1 something was not, or differs, 2 unusable arguments or files.\n"
      "Example: kelconf explore examples/small --scripts tests/screens");
  AddSourceOptions(command, options->source);
  AddFormatOption(command, options->format);
  command.Number("--keys", options->keys, 1, 100'000'000, "how many keys may be pressed");
  command.Text("--scripts", options->scripts, "writes each play as a UI script into this folder, with what it prints");
  command.Text("--expect", options->expect, "plays the scripts of this folder again and compares");
  command.Exclude("--expect", "--scripts");
  command.Do([options, &streams] { return Run(*options, streams); });
}

}  // namespace tools
