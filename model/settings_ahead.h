// The settings that a walk over the configuration is going to read, for devices that are far away.
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"
#include "config/data_store.h"
#include "platform/device.h"

#include <vector>

namespace model {

// What building the menu of a root key reads, each as often as it does. What only another setting's value can tell is
// not among them.
std::vector<platform::Setting> SettingsOfMenu(const config::PDataStore& tree, const config::ConfigKey& root,
                                              WideStringView rootPath);

// What the walk back to the factory values reads of reader commands.
std::vector<platform::Setting> SettingsOfDefaults(const config::PDataStore& tree, WideStringView path);

}  // namespace model
