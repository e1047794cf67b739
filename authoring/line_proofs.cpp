#include "authoring/line_proofs.h"

#include "authoring/rule_cases.h"
#include "authoring/wireless_items.h"

#include <algorithm>
#include <unordered_set>

namespace authoring {
namespace {

using model::DisplayState;
using model::MenuItem;

// So many times rules are run for one line.
constexpr std::size_t kMostRuns = 100'000;

class Outcomes final : public rules::RuleListener {
 public:
  std::vector<bool> holds;

  void OnRule(int, WideStringView) override { holds.push_back(false); }
  void OnDecided(bool, bool ruleHolds) override {
    if (!holds.empty()) holds.back() = ruleHolds;
  }
};

bool IsVisible(const MenuItem& item) {
  return item.State() != DisplayState::kNotDisplayed && item.State() != DisplayState::kBlank;
}

// Everything that stands in a menu and in the menus below it, wherever else it stands.
std::unordered_set<const Subject*> InsideOf(const Survey& survey, const Subject& menu) {
  std::unordered_set<const Subject*> inside;
  std::vector<const Subject*> open{&menu};
  while (!open.empty()) {
    const Subject* next = open.back();
    open.pop_back();
    for (const Entry* child : next->MenuEntry().children) {
      const Subject& subject = survey.Of(*child);
      if (inside.insert(&subject).second) open.push_back(&subject);
    }
  }
  return inside;
}

// Which variables keep their values while a person is somewhere inside a menu.
std::vector<bool> FixedInside(const Survey& survey, const Subject& menu, const RuleCases& cases) {
  const auto inside = InsideOf(survey, menu);
  const bool canRestore = std::any_of(inside.begin(), inside.end(), [](const Subject* subject) {
    return subject->Get(Attribute::kFunction) == LoadText(TextId::kRestoreDefaults);
  });
  std::vector<bool> fixed;
  for (const RuleVariable& variable : cases.Variables()) {
    const auto properties = survey.WithOid(variable.oid);
    const bool isSetElsewhere = IsSetByWirelessRules(variable.oid) ||
                                std::any_of(survey.Triples().begin(), survey.Triples().end(),
                                            [&](const model::SetTriple& triple) { return triple.oid == variable.oid; });
    // The fields of a command are written and read together.
    const bool canChange = std::any_of(properties.begin(), properties.end(), [&](const Subject* property) {
      return property->IsField() || property->Layout() != nullptr || inside.contains(property);
    });
    fixed.push_back(!canRestore && !isSetElsewhere && !properties.empty() && !canChange);
  }
  return fixed;
}

// In which cases of the fixed variables each of some things came about.
class Sightings {
 public:
  Sightings(std::size_t things, const RuleCases& cases, std::vector<bool> fixed)
      : cases_(cases), fixed_(std::move(fixed)), casesOf_(things) {}

  void Note(std::size_t thing) { casesOf_[thing].insert(FixedCase()); }

  // One case in which all of the first `count` things came about, and `other` too.
  bool HaveACaseInCommon(std::size_t count, std::size_t other) const {
    return std::any_of(casesOf_[other].begin(), casesOf_[other].end(), [&](std::size_t one) {
      return std::all_of(casesOf_.begin(), casesOf_.begin() + static_cast<std::ptrdiff_t>(count),
                         [one](const auto& seen) { return seen.contains(one); });
    });
  }

 private:
  std::size_t FixedCase() const {
    std::size_t number = 0;
    for (std::size_t i = 0; i < fixed_.size(); ++i) {
      if (fixed_[i]) number = number * cases_.Variables()[i].values.size() + cases_.Present(i);
    }
    return number;
  }

  const RuleCases& cases_;
  const std::vector<bool> fixed_;
  std::vector<std::unordered_set<std::size_t>> casesOf_;  // by thing
};

std::string NamesOf(const RuleCases& cases) {
  std::string names;
  for (const RuleVariable& variable : cases.Variables()) names += (names.empty() ? "" : ", ") + variable.name;
  return names;
}

}  // namespace

bool LineCase::IsShown() const { return IsVisible(item); }
bool LineCase::IsEditable() const { return IsShown() && item.State() != DisplayState::kNoEdit; }

LineProofs::LineProofs(const Survey& survey, FollowedTrial& trial) : survey_(survey), trial_(trial) {
  for (const Subject& subject : survey.Subjects()) subjects_.emplace(&subject.Key(), &subject);
}

const Subject* LineProofs::SubjectOf(const MenuItem& item) const {
  const auto found = subjects_.find(item.Key());
  return found == subjects_.end() ? nullptr : found->second;
}

std::vector<Ruling> LineProofs::Decide(const ItemPlace& place, const std::vector<IsThere>& goals) {
  std::vector<Ruling> rulings(goals.size());
  trial_.trial.Rebuild();
  MenuItem* line = ItemAtPlace(trial_.trial.Model(), place);
  if (line == nullptr || line->Parent() == nullptr) return rulings;

  // The menus above that rules can close, and the line.
  std::vector<MenuItem*> way;
  MenuItem* outermost = line;
  for (MenuItem* menu = line->Parent(); menu->Parent() != nullptr; menu = menu->Parent()) {
    const Subject* subject = SubjectOf(*menu);
    if (subject != nullptr && !subject->Rules().empty()) way.push_back(outermost = menu);
  }
  const std::size_t menus = way.size();
  way.push_back(line);

  const MemoryDevice before = trial_.trial.Device();
  RuleCases cases(survey_, trial_, way, false);
  const std::size_t most = std::min(kMostCases, kMostRuns / way.size());
  if (cases.Count(most) > most) {
    for (Ruling& ruling : rulings) ruling.reason = "not decided: the rules read " + cases.TooManySaid(most);
  } else {
    const Subject* entered = SubjectOf(*outermost);
    Sightings seen(menus + goals.size(), cases,
                   menus == 0 || entered == nullptr ? std::vector<bool>(cases.Variables().size())
                                                    : FixedInside(survey_, *entered, cases));
    cases.ForEach([&] {
      Outcomes outcomes;
      // The line is the last: what its rules store is not to be read by those of the menus.
      for (std::size_t i = 0; i < way.size(); ++i) {
        outcomes.holds.clear();
        trial_.RunRules(*way[i], outcomes);
        if (i < menus && IsVisible(*way[i])) seen.Note(i);
      }
      const LineCase present{*line, outcomes.holds};
      for (std::size_t i = 0; i < goals.size(); ++i) {
        if (goals[i](present)) seen.Note(menus + i);
      }
      return true;
    });
    const std::string names = NamesOf(cases);
    for (std::size_t i = 0; i < goals.size(); ++i) {
      if (seen.HaveACaseInCommon(menus, menus + i)) continue;
      rulings[i] = {true, names.empty() ? "no setting has a say in it" : "no values of " + names + " lead there"};
    }
  }
  trial_.trial.Device() = before;
  trial_.trial.Rebuild();
  return rulings;
}

}  // namespace authoring
