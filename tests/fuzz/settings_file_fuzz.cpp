// Settings files, and those that the utility stores: each is read to its end, every slip has its sentence, and what was
// read can be written so that it is read again.
#include "base/utf8.h"
#include "settings/settings_file.h"
#include "settings/stored_settings.h"
#include "settings/yaml_text.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireThatItReadsBack(const WideString& text) {
  const auto written = settings::YamlText(text);
  Require(written.has_value());
  constexpr std::size_t kLongestName = 1000;  // of the reader of YAML
  if (written->size() > kLongestName) return;
  const auto read = settings::ReadSettingsFile("f", *written + ": " + *written + "\n");
  Require(read.problems.empty() && read.settings.size() == 1);
  Require(read.settings[0].path[0] == text && read.settings[0].value.text == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const bool isStored = settings::AreStoredSettings(bytes);
  const auto file = isStored ? settings::ReadStoredSettings("f", bytes) : settings::ReadSettingsFile("f", bytes);
  for (const auto& problem : file.problems) Require(!problem.sentence.empty());
  for (const auto& setting : file.settings) {
    Require(!setting.path.empty() && setting.at.line > 0);
    if (isStored) continue;
    for (const WideString& name : setting.path) RequireThatItReadsBack(name);
    RequireThatItReadsBack(setting.value.text);
  }
  return 0;
}
