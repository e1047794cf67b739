// Plans and comparisons, for people and for programs.
#pragma once

#include "settings/differences.h"
#include "settings/plan.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace tools {

void PrintPlan(const settings::Plan& plan, std::ostream& out);
void PrintRefusals(const settings::Plan& plan, std::ostream& out);
nlohmann::ordered_json ToJson(const settings::Plan& plan);

void PrintDifferences(const std::vector<settings::WantedSetting>& wanted,
                      const std::vector<settings::Difference>& differences, std::ostream& out);
nlohmann::ordered_json ToJson(const std::vector<settings::WantedSetting>& wanted,
                              const std::vector<settings::Difference>& differences);

// "Network/Name (1.2.3)"
std::string NameAndOid(const settings::PlannedSet& set);
// In quotes; stars for a secret.
std::string ShownText(const WideString& text, bool isSecret);

}  // namespace tools
