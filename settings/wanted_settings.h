// What a settings file asks of one terminal: its entries found in the menus, its secrets filled in.
#pragma once

#include "authoring/trial.h"
#include "settings/given_value.h"

#include <functional>
#include <optional>

namespace settings {

struct WantedSetting {
  std::size_t item = 0;  // among authoring::ItemsOf(), the same in every model of the configuration
  std::string name;      // "Network/Addresses/DHCP"
  WideString oid;        // as the configuration has it
  GivenValue value;      // a secret's text is the secret
  bool isSecret = false;
  authoring::Position at;
};

struct WantedSettings {
  std::vector<WantedSetting> settings;  // in the order of the file
  std::vector<FileProblem> problems;    // with any, nothing is to be set
};

// Nothing: there is no secret of that name.
using Secrets = std::function<std::optional<WideString>(WideStringView name)>;

WantedSettings Resolve(const SettingsFile& file, authoring::Trial& trial, const Secrets& secrets);

}  // namespace settings
