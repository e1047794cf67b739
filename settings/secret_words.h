// Secrets that settings files name: from a file that only its owner may read, or from the environment.
//
//   # a comment
//   WPA = correct horse battery
//
// A name is letters, digits and "_"; the secret is all behind the sign, without the blanks around it.
#pragma once

#include "settings/wanted_settings.h"

#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace settings {

// A variable of the environment; null: not set.
using Variables = std::function<const char*(const char* name)>;

class SecretWords {
 public:
  // Empty, or one line that says why the file cannot be used; never what stands in it. An empty name: no file.
  std::string Read(const std::filesystem::path& file);

  // KELSET_SECRET_NAME counts in place of the file's NAME.
  std::optional<WideString> Find(WideStringView name, const Variables& variables) const;

 private:
  std::map<std::string, WideString, std::less<>> words_;
};

}  // namespace settings
