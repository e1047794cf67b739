// The settings that a command is to make or to look for.
#pragma once

#include "settings/wanted_settings.h"
#include "tools/kelset_device.h"

#include <optional>

namespace tools {

struct SettingsOptions {
  std::string file;
  std::string secrets;
};

enum class Answer { kText, kJson };

// SETTINGS and --secrets.
void AddSettingsOptions(Command& command, SettingsOptions& options);
void AddAnswerOption(Command& command, Answer& answer);

// What the file asks of this terminal. Nothing, after all its slips were said on standard error.
std::optional<std::vector<settings::WantedSetting>> LoadWanted(const SettingsOptions& options,
                                                               const authoring::Configuration& configuration,
                                                               SetStreams& streams);

}  // namespace tools
