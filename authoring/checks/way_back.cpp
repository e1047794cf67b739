#include "authoring/checks/way_back.h"

#include "base/utf8.h"

namespace authoring {
namespace {

// A person can give the property this value.
bool CanBeSaved(const Subject& property, const WideString& value) {
  if (property.HasChoiceList()) return property.IsChoice(value);
  return !value.empty();
}

}  // namespace

WayBack::WayBack(const Subject& line, const RuleCases& cases) : line_(line), cases_(cases) {
  for (std::size_t i = 0; i < cases.Variables().size(); ++i) {
    const auto properties = line.All().WithOid(cases.Variables()[i].oid);
    // What stands in several places can be edited in another one.
    if (properties.size() != 1) continue;
    const Subject& property = *properties.front();
    if (!property.IsEditable() || !Entries::IsWithin(property.MenuEntry(), line.MenuEntry())) continue;
    settings_.push_back({i, &property, std::vector<bool>(cases.Variables()[i].values.size())});
  }
}

void WayBack::Note(bool isShown) {
  if (!isShown) return;
  for (Setting& setting : settings_) setting.everShown[cases_.Present(setting.variable)] = true;
}

std::vector<std::string> WayBack::Traps() const {
  std::vector<std::string> traps;
  for (const Setting& setting : settings_) {
    const RuleVariable& variable = cases_.Variables()[setting.variable];
    std::size_t trap = 0;
    while (trap < variable.values.size() &&
           (setting.everShown[trap] || !CanBeSaved(*setting.property, variable.values[trap]))) {
      ++trap;
    }
    if (trap == variable.values.size() || line_.All().Menus().StandsElsewhere(setting.property->MenuEntry())) continue;
    const bool isItself = &setting.property->Key() == &line_.Key();
    traps.push_back("Once " + variable.name + " is saved as " + variable.Said(variable.values[trap]) + ", " +
                    (isItself ? "its line is hidden" : "this menu is hidden, and with it that line") +
                    ": nobody at the terminal can change it back.");
  }
  return traps;
}

}  // namespace authoring
