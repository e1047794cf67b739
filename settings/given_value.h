// What a settings file says of one setting: which entry of the menus it is, what it is to have, and where that stands.
#pragma once

#include "authoring/configuration.h"
#include "base/wide_string.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace settings {

struct GivenValue {
  enum class Kind {
    kShown,    // as the screen shows it: a choice's text, a dotted address
    kRaw,      // as the device has it
    kStored,   // as the utility stores it: an address is a number
    kDefault,  // the configuration's factory value
    kSecret,   // the secret of the name in `text`
    kNothing,  // nothing stands there, as below a menu whose entries are all comments
  };
  Kind kind = Kind::kShown;
  WideString text;  // empty of kDefault
  bool operator==(const GivenValue&) const = default;
};

struct GivenSetting {
  // The menus from the top and the entry in the last of them, by the names on the screen; or one OID.
  std::vector<WideString> path;
  GivenValue value;
  authoring::Position at;
};

// One slip of a file.
struct FileProblem {
  authoring::Position at;
  std::string sentence;
};

struct SettingsFile {
  std::vector<GivenSetting> settings;  // in the order of the file
  std::vector<FileProblem> problems;   // with any, nothing is to be set

  void Add(std::vector<WideString> path, GivenValue value, authoring::Position at) {
    settings.push_back({std::move(path), std::move(value), std::move(at)});
  }
  void Complain(authoring::Position at, std::string sentence) {
    problems.push_back({std::move(at), std::move(sentence)});
  }
};

// "Network/Addresses/DHCP"
std::string ToText(const std::vector<WideString>& path);
// "file:line:column"
std::string ToText(const authoring::Position& position);

}  // namespace settings
