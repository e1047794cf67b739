#include "authoring/checks/proofs.h"

#include "authoring/checks/way_back.h"
#include "authoring/items.h"
#include "authoring/rule_cases.h"
#include "authoring/wireless_items.h"
#include "base/utf8.h"
#include "rules/operands.h"
#include "rules/rule_actions.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace authoring {
namespace {

using model::DisplayState;
using model::MenuItem;

// So many menus with rules, one within the other, are gone through for each that can be empty.
constexpr std::size_t kMostMenusAbove = 16;

constexpr const char* kEmptyMenu = "all its lines can be hidden at once";

bool IsHidden(DisplayState state) { return state == DisplayState::kNotDisplayed; }

// What the rules of one line did in one case.
class CaseRecord final : public rules::RuleListener {
 public:
  struct Rule {
    std::vector<bool> comparisons;
    WideString action;
    std::optional<DisplayState> state;
  };
  std::vector<Rule> rules;
  std::size_t stored = 0;  // fallbacks

  void Clear() {
    rules.clear();
    stored = 0;
  }
  void OnRule(int, WideStringView) override { rules.emplace_back(); }
  void OnComparison(const rules::Comparison& comparison) override {
    if (!rules.empty()) rules.back().comparisons.push_back(comparison.holds);
  }
  void OnAction(const rules::RuleAction& action) override {
    if (rules.empty()) return;
    rules.back().state = action.state;
    rules.back().action = action.known ? action.text : WideStringView();
  }
  void OnChoices(const MenuItem&, WideStringView, WideStringView fallback) override {
    if (!fallback.empty()) ++stored;
  }
};

// What the rules of one line can do.
struct RuleOutcomes {
  std::vector<bool> everTrue;  // of its comparisons
  std::vector<bool> everFalse;
  bool setsState = false;
  bool matters = false;   // the line's state would be another without it, or it does something else
  bool everLast = false;  // no later rule sets a state in a case where this one does
};

bool DoesMoreThanAState(WideStringView action) {
  const rules::ActionRow* known = rules::FindAction(action);
  return known == nullptr ? rules::ReadChoicesAction(action).has_value() : !rules::StateOf(known->effect).has_value();
}

bool TakesAway(rules::Effect effect) { return effect == rules::Effect::kHide || effect == rules::Effect::kBlank; }

// A flag that hides also keeps the default from being restored.
bool HasVerdict(const RuleText& rule) {
  const rules::FlagRow* flag = rule.form == RuleText::Form::kFlag ? rules::FindFlag(rule.flag) : nullptr;
  return flag != nullptr && (TakesAway(flag->whenMatched) || TakesAway(flag->otherwise));
}

bool Runs(const RuleText& rule) {
  return rule.form == RuleText::Form::kCondition || (rule.form == RuleText::Form::kFlag && rule.fields == 4);
}

template <typename Visit>
void ForEachFallback(const Subject& subject, Visit visit) {
  for (const RuleText& rule : subject.Rules()) {
    for (const WideString* action : {&rule.thenAction, &rule.elseAction}) {
      const auto narrowed = rules::ReadChoicesAction(*action);
      if (narrowed && !narrowed->fallback.empty()) visit(*narrowed);
    }
  }
}

bool HasFallback(const Subject& subject) {
  bool found = false;
  ForEachFallback(subject, [&found](const auto&) { found = true; });
  return found;
}

// What is wrong with them by themselves has been said.
bool FallbacksAreSound(const Subject& subject) {
  bool sound = subject.All().WithName(subject.Get(Attribute::kDisplayName)).size() == 1;
  ForEachFallback(subject, [&](const rules::ChoicesAction& narrowed) {
    const WideString list = subject.All().Source().Symbols().TextOf(narrowed.choices);
    sound = sound && values::ChoiceFormat(list, values::KeyMode::kText).IndexOfKey(narrowed.fallback).has_value();
  });
  return sound;
}

class Prover {
 public:
  Prover(const Survey& survey, FollowedTrial& trial, Findings& findings)
      : survey_(survey), trial_(trial), findings_(findings) {
    for (MenuItem* item : ItemsOf(trial.trial.Model())) {
      if (const config::ConfigKey* key = item->Key()) items_.emplace(key, item);
    }
    // Each menu stands before what is in it.
    for (const Subject& subject : survey.Subjects()) {
      const Entry* parent = subject.MenuEntry().parent;
      const bool isRuled = parent != nullptr && subject.Has(Attribute::kDependency);
      ruled_.push_back(isRuled ? &subject : parent == nullptr ? nullptr : ruled_[parent->number]);
    }
  }

  void ProveLine(const Subject& subject) {
    MenuItem* item = ItemOf(subject);
    if (item == nullptr || std::none_of(subject.Rules().begin(), subject.Rules().end(), Runs)) return;
    RuleCases cases(survey_, trial_, {item}, HasFallback(subject));
    if (!IsDecidable(subject, cases, "its rules do what they say")) return;
    std::vector<RuleOutcomes> outcomes(subject.Rules().size());
    bool everShown = false;
    WayBack wayBack(subject, cases);
    cases.ForEach([&] {
      Run(*item);
      const DisplayState state = item->State();
      const bool isShown = state != DisplayState::kNotDisplayed && state != DisplayState::kBlank;
      everShown = everShown || isShown;
      wayBack.Note(isShown);
      if (IsHidden(state) && !IsShownByWirelessRules(subject.Oid())) canHide_.insert(&subject);
      Note(outcomes);
      return true;
    });
    const bool isSlip = ReportRules(subject, outcomes, cases) || ReadsNothing(subject);
    if (everShown) {
      Begin("no-way-back");
      for (const std::string& sentence : wayBack.Traps()) {
        findings_.Add(subject, Attribute::kDependency, sentence, "Let another setting decide, or lock it by NoEdit.");
      }
      return;
    }
    // It is hidden because of what has been said, or other rules can show it.
    if (isSlip || IsShownByWirelessRules(subject.Oid())) return;
    const std::size_t count = cases.Count(kMostCases);
    Begin("line-never-shown");
    findings_.Add(subject, Attribute::kDependency,
                  (count == 1 ? "Its rules hide the line, whatever the values are"
                              : "In none of the " + std::to_string(count) +
                                    " cases of the values that its rules read is the line shown") +
                      ValuesOf(cases) + ".",
                  "Mend its rules, or leave the entry out.");
  }

  // A menu whose lines are all hidden in one case in which the menu itself can be entered.
  void ProveMenu(const Subject& subject) {
    const auto& children = subject.MenuEntry().children;
    if (children.empty()) return;
    for (const Entry* child : children) {
      if (!canHide_.contains(&survey_.Of(*child))) return;
    }
    const Way way = WayTo(subject);
    std::vector<const Subject*> lines;
    lines.reserve(children.size());
    for (const Entry* child : children) lines.push_back(&survey_.Of(*child));
    std::vector<MenuItem*> items;
    for (const auto& group : {way.menus, lines}) {
      for (const Subject* line : group) {
        if (MenuItem* item = ItemOf(*line)) items.push_back(item);
      }
    }
    RuleCases cases(survey_, trial_, items, false);
    if (!IsDecidable(subject, cases, kEmptyMenu)) return;
    const auto shown = [&](const Subject* line) {
      MenuItem* item = ItemOf(*line);
      if (item == nullptr) return false;
      Run(*item);
      return !IsHidden(item->State());
    };
    cases.ForEach([&] {
      const bool isOpen = std::all_of(way.menus.begin(), way.menus.end(), [&](const Subject* menu) {
        return shown(menu) && ItemOf(*menu)->State() != DisplayState::kBlank;
      });
      if (!isOpen || std::any_of(lines.begin(), lines.end(), shown)) return true;
      if (!way.isWhole) {
        NotDecided(subject, kEmptyMenu,
                   "the rules of more than " + std::to_string(kMostMenusAbove) + " menus above it");
        return false;
      }
      Begin("menu-can-be-empty");
      findings_.Add(
          subject, "All lines of this menu are hidden at once, for " + cases.Said() + ": it then reads \"(no items)\".",
          "Hide the menu itself by the same condition, or keep a line shown.");
      return false;
    });
  }

  // Fallbacks on one page that are stored each time the page is shown.
  void ProveFallbacks(const Subject& subject) {
    std::vector<const Subject*> lines;
    for (const Entry* child : subject.MenuEntry().children) {
      const Subject& line = survey_.Of(*child);
      if (HasFallback(line) && ItemOf(line) != nullptr && FallbacksAreSound(line)) lines.push_back(&line);
    }
    if (lines.empty()) return;
    std::vector<MenuItem*> items;
    items.reserve(lines.size());
    for (const Subject* line : lines) items.push_back(ItemOf(*line));
    RuleCases cases(survey_, trial_, items, true);
    if (!IsDecidable(*lines.front(), cases, "fallbacks of this page undo each other")) return;
    constexpr int kFills = 3;
    cases.ForEach([&] {
      const Subject* last = nullptr;
      for (int fill = 1; fill <= kFills; ++fill) {
        for (const Subject* line : lines) {
          Run(*ItemOf(*line));
          if (fill == kFills && record_.stored > 0) last = line;
        }
      }
      if (last == nullptr) return true;
      Begin("rules-undo-each-other");
      findings_.Add(*last, Attribute::kDependency,
                    "For " + cases.Said() + " fallbacks are stored each time the page is shown: one undoes the other.",
                    "Make the rules exclude each other, or keep each fallback among the choices of all of them.");
      return false;
    });
  }

 private:
  // What decides whether a menu can be entered: itself and those above it, as far as they have rules, the nearest
  // first.
  struct Way {
    std::vector<const Subject*> menus;
    bool isWhole = true;  // else there are more
  };
  Way WayTo(const Subject& menu) const {
    Way way;
    for (const Subject* at = NearestRuled(menu); at != nullptr;
         at = NearestRuled(survey_.Of(*at->MenuEntry().parent))) {
      if (way.menus.size() == kMostMenusAbove) return {std::move(way.menus), false};
      way.menus.push_back(at);
    }
    return way;
  }
  // Of the menu and those above it but the main menu; null: none has rules.
  const Subject* NearestRuled(const Subject& menu) const { return ruled_[menu.MenuEntry().number]; }

  MenuItem* ItemOf(const Subject& subject) const {
    const auto found = items_.find(&subject.Key());
    return found == items_.end() ? nullptr : found->second;
  }

  void Begin(std::string_view id) { findings_.Begin(*FindCheck(id)); }

  bool IsDecidable(const Subject& subject, const RuleCases& cases, const char* what) {
    if (cases.Count(kMostCases) <= kMostCases) return true;
    NotDecided(subject, what, cases.TooManySaid(kMostCases));
    return false;
  }

  void NotDecided(const Subject& subject, const char* what, const std::string& reason) {
    Begin("not-decided");
    findings_.Add(subject, Attribute::kDependency,
                  "Not decided: whether " + std::string(what) + " depends on " + reason + ".", "");
  }

  // The line's rules on the present values; what they did is in record_.
  void Run(MenuItem& item) {
    record_.Clear();
    trial_.RunRules(item, record_);
  }

  void Note(std::vector<RuleOutcomes>& outcomes) const {
    const std::size_t count = std::min(outcomes.size(), record_.rules.size());
    std::optional<DisplayState> before;  // of the rules so far
    for (std::size_t i = 0; i < count; ++i) {
      const CaseRecord::Rule& rule = record_.rules[i];
      RuleOutcomes& outcome = outcomes[i];
      outcome.everTrue.resize(std::max(outcome.everTrue.size(), rule.comparisons.size()));
      outcome.everFalse.resize(outcome.everTrue.size());
      for (std::size_t k = 0; k < rule.comparisons.size(); ++k) {
        (rule.comparisons[k] ? outcome.everTrue : outcome.everFalse)[k] = true;
      }
      if (DoesMoreThanAState(rule.action)) outcome.matters = true;
      if (!rule.state) continue;
      outcome.setsState = true;
      const bool isLast = std::none_of(record_.rules.begin() + static_cast<std::ptrdiff_t>(i) + 1, record_.rules.end(),
                                       [](const CaseRecord::Rule& later) { return later.state.has_value(); });
      if (isLast) outcome.everLast = true;
      if (isLast && *rule.state != before.value_or(DisplayState::kNormal)) outcome.matters = true;
      before = rule.state;
    }
  }

  // A rule that names what is not there has been reported as such.
  bool ReadsNothing(const Subject& subject) const {
    return std::any_of(subject.Rules().begin(), subject.Rules().end(), [&](const RuleText& rule) {
      return std::any_of(rule.comparisons.begin(), rule.comparisons.end(), [&](const RuleComparison& comparison) {
        if (rule.form == RuleText::Form::kCondition) return survey_.WithName(comparison.name).empty();
        const WideString oid = rules::Operands::OidOfName(comparison.name, &subject.Key());
        return !oid.empty() && survey_.WithOid(oid.substr(0, oid.find(u':'))).empty() &&
               survey_.DeviceText(oid) == nullptr;
      });
    });
  }

  // True: a comparison was found that never changes.
  bool ReportRules(const Subject& subject, const std::vector<RuleOutcomes>& outcomes, const RuleCases& cases) {
    bool found = false;
    for (std::size_t i = 0; i < outcomes.size(); ++i) {
      const RuleText& rule = subject.Rules()[i];
      if (!Runs(rule)) continue;
      const WideString attribute = NumberedName(Attribute::kDependency, rule.number);
      const bool constant = ReportComparisons(subject, rule, outcomes[i], cases);
      found = found || constant;
      if (constant || outcomes[i].matters || !outcomes[i].setsState || HasVerdict(rule)) continue;
      if (!outcomes[i].everLast) {
        Begin("rule-overridden");
        findings_.Add(subject, attribute,
                      "Whenever this rule decides about the line, a later one decides otherwise or the same.",
                      "Put it behind the others, or leave it out.");
      } else {
        Begin("rule-no-effect");
        findings_.Add(subject, attribute, "Without this rule the line would be the same in all cases.",
                      "Leave it out, or give it an ELSE.");
      }
    }
    return found;
  }

  // True: one of them never changes, which is all that is to be said of the rule.
  bool ReportComparisons(const Subject& subject, const RuleText& rule, const RuleOutcomes& outcome,
                         const RuleCases& cases) {
    bool found = false;
    std::size_t at = 0;
    for (std::size_t k = 0; k < outcome.everTrue.size() && k < rule.comparisons.size(); ++k) {
      const RuleComparison& comparison = rule.comparisons[k];
      const std::size_t place = rule.text.find(comparison.name, at);
      if (place != WideStringView::npos) at = place;
      if (outcome.everTrue[k] == outcome.everFalse[k]) continue;
      const WideString oid = rule.form == RuleText::Form::kCondition
                                 ? trial_.trial.Model().OidByName(comparison.name)
                                 : rules::Operands::OidOfName(comparison.name, &subject.Key());
      const RuleVariable* variable = cases.Find(oid);
      if (variable == nullptr) continue;  // a name that nothing has is another slip, and Empty a way to say always
      found = true;
      Begin(outcome.everTrue[k] ? "comparison-always-true" : "comparison-never-true");
      findings_.Add(subject, NumberedName(Attribute::kDependency, rule.number), at,
                    Quoted(comparison.name) + (comparison.wantsEqual ? " EQ " : " NEQ ") + Quoted(comparison.wanted) +
                        (outcome.everTrue[k] ? " always" : " never") + " holds: " + variable->name + " is " +
                        variable->AllSaid() + ".",
                    "Compare with a value that the property can have, as the device writes it.");
    }
    return found;
  }

  static std::string ValuesOf(const RuleCases& cases) {
    std::string text;
    for (const RuleVariable& variable : cases.Variables()) text += ": " + variable.name + " is " + variable.AllSaid();
    return text;
  }

  const Survey& survey_;
  FollowedTrial& trial_;
  Findings& findings_;
  CaseRecord record_;
  std::unordered_map<const config::ConfigKey*, MenuItem*> items_;
  std::unordered_set<const Subject*> canHide_;
  std::vector<const Subject*> ruled_;  // by the number of the entry
};

}  // namespace

void ProveRules(const Survey& survey, FollowedTrial& trial, Findings& findings,
                const std::function<void(std::size_t done, std::size_t all)>& progress) {
  Prover prover(survey, trial, findings);
  std::size_t done = 0;
  const std::size_t all = survey.Subjects().size();
  for (const Subject& subject : survey.Subjects()) {
    prover.ProveLine(subject);
    if (progress) progress(++done, all);
  }
  for (const Subject& subject : survey.Subjects()) {
    if (!subject.IsMenu()) continue;
    prover.ProveMenu(subject);
    prover.ProveFallbacks(subject);
  }
}

}  // namespace authoring
