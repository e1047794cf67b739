#include "tools/kelset_settings.h"

#include "platform/host/utf8_path.h"
#include "settings/secret_words.h"
#include "settings/settings_file.h"
#include "settings/stored_settings.h"
#include "simulator/text_file.h"

#include <cstdlib>

namespace tools {

using platform::host::PathOf;

void AddSettingsOptions(Command& command, SettingsOptions& options) {
  command.RequiredText("SETTINGS", options.file,
                       "a settings file, as kelset export writes it, or the CfgSettings.txt of a terminal");
  command.Text("--secrets", options.secrets,
               "the file with the secrets that SETTINGS names, one \"NAME = SECRET\" a line; only its owner may read "
               "it. KELSET_SECRET_NAME counts in place of NAME");
}

void AddAnswerOption(Command& command, Answer& answer) {
  command.Choice(
      "--format", {"text", "json"},
      [&answer](const std::string& name) { answer = name == "json" ? Answer::kJson : Answer::kText; }, "how to answer");
}

std::optional<std::vector<settings::WantedSetting>> LoadWanted(const SettingsOptions& options,
                                                               const authoring::Configuration& configuration,
                                                               SetStreams& streams) {
  const auto bytes = simulator::ReadTextFile(PathOf(options.file));
  settings::SecretWords words;
  const std::string problem = bytes ? words.Read(PathOf(options.secrets)) : options.file + ": cannot be read";
  if (!problem.empty()) {
    Complain(streams, problem);
    return std::nullopt;
  }
  const auto secrets = [&words](WideStringView name) {
    return words.Find(name, [](const char* variable) -> const char* { return std::getenv(variable); });
  };
  authoring::Trial trial(configuration);
  settings::WantedSettings wanted = settings::Resolve(settings::ReadSettingsFile(options.file, *bytes), trial, secrets);
  for (const settings::FileProblem& slip : wanted.problems) {
    Complain(streams, settings::ToText(slip.at) + ": " + slip.sentence);
  }
  if (!wanted.problems.empty()) return std::nullopt;
  return std::move(wanted.settings);
}

}  // namespace tools
