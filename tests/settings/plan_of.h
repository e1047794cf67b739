// A storage's plan for the text of a settings file, and a short word for each of its sets.
#pragma once

#include "settings/plan.h"
#include "settings/settings_file.h"
#include "tests/authoring/storage_folder.h"

#include "base/utf8.h"

namespace tests {

inline std::vector<settings::WantedSetting> WantedOf(const authoring::Configuration& configuration,
                                                     const std::string& text, const settings::Secrets& secrets = {}) {
  authoring::Trial trial(configuration);
  auto wanted = settings::Resolve(settings::ReadSettingsFile("s.yaml", text), trial, secrets);
  for (const auto& problem : wanted.problems) ADD_FAILURE() << settings::ToText(problem.at) << ": " << problem.sentence;
  return std::move(wanted.settings);
}

inline settings::Plan PlanOf(const std::filesystem::path& folder, const std::string& text,
                             const settings::PlanOptions& options = {}, const settings::Secrets& secrets = {}) {
  const auto loaded = authoring::Configuration::Load(folder);
  EXPECT_EQ("", loaded.problem);
  return MakePlan(*loaded.configuration, WantedOf(*loaded.configuration, text, secrets), options);
}

// "Name=value Other=value"; "+" before what follows from another, "!" before a command.
inline std::string SetsOf(const settings::Plan& plan) {
  std::string sets;
  for (const auto& set : plan.sets) {
    const char* origins[] = {"", "+", "!"};
    sets += (sets.empty() ? "" : " ") + std::string(origins[static_cast<int>(set.origin)]);
    sets += set.name.substr(set.name.rfind('/') + 1) + "=" + base::ToUtf8(set.value);
  }
  return sets;
}

inline std::string RefusalsOf(const settings::Plan& plan) {
  std::string refusals;
  for (const auto& refusal : plan.refusals) refusals += plan.wanted[refusal.setting].name + ": " + refusal.why + "\n";
  return refusals;
}

// A property in a menu of StorageFolder::WriteMenu().
inline std::string Entry(const std::string& name, const std::string& oid, const std::string& type,
                         const std::string& more = "") {
  return "<GROUP name=\"" + name + "\"><DisplayName>" + name + "</DisplayName><OID>" + oid + "</OID><Type>" + type +
         "</Type>" + more + "</GROUP>\n";
}

}  // namespace tests
