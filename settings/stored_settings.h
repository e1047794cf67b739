// The settings as the utility itself stores them ("\CfgSettings.txt", rules/config_store.h), read as a settings file.
#pragma once

#include "settings/given_value.h"

#include <string_view>

namespace settings {

// By how they begin: 16-bit units of "<Tag>".
bool AreStoredSettings(std::string_view bytes);

// Each property by its OID; a position has the record's number as line. `file` is the name in the positions.
SettingsFile ReadStoredSettings(const std::string& file, std::string_view bytes);

}  // namespace settings
