#include "authoring/goals.h"

#include "authoring/checks/attributes.h"
#include "authoring/checks/rule_text.h"
#include "authoring/entries.h"
#include "authoring/items.h"
#include "base/utf8.h"
#include "model/entry_kind.h"
#include "rules/rule_actions.h"
#include "rules/wireless_couplings.h"

namespace authoring {
namespace {

// Bounds what a hostile configuration can ask for.
constexpr std::size_t kMostGoals = 500'000;

// The lists of all "ChoiceFmt=" actions of an entry's rules.
std::vector<WideString> ChoiceListsOf(const config::ConfigKey& key) {
  std::vector<WideString> lists;
  for (const WideStringView text : RulesOf(key)) {
    const RuleText rule = ReadRule(0, text);
    for (const WideString* action : {&rule.thenAction, &rule.elseAction}) {
      if (const auto narrowed = rules::ReadChoicesAction(*action)) lists.emplace_back(narrowed->choices);
    }
  }
  return lists;
}

bool LiesTooDeep(const model::MenuItem& item) {
  std::size_t level = 0;
  for (const model::MenuItem* at = item.Parent(); at != nullptr && level <= kDeepestGoal; at = at->Parent()) ++level;
  return level > kDeepestGoal;
}

}  // namespace

const char* NameOf(GoalKind kind) {
  static constexpr const char* kNames[kGoalKinds] = {"menu", "line",    "editor", "choice",
                                                     "save", "command", "rule",   "alert"};
  return kNames[static_cast<std::size_t>(kind)];
}

std::string Goal::Id() const { return std::string(NameOf(kind)) + " " + path + (what.empty() ? "" : ": " + what); }

std::string OutcomeName(int rule, bool holds) {
  return base::ToUtf8(NumberedName(Attribute::kDependency, rule)) + (holds ? ": yes" : ": no");
}

std::string PathText(const model::MenuItem& item) { return base::ToUtf8(PathOf(item)); }

Goals::Goals(Trial& trial) {
  AddWirelessAlerts(trial.Model());
  for (const model::MenuItem* item : ItemsOf(trial.Model())) {
    if (LiesTooDeep(*item)) {
      ++tooDeep_;
    } else {
      AddItem(trial, *item);
    }
  }
}

// What the wireless rules say when they correct a setting that the configuration has. The goal's place is that of the
// setting's menu, where its rules run.
void Goals::AddWirelessAlerts(const model::MenuModel& model) {
  using namespace rules::wireless;
  const std::pair<WideStringView, std::span<const Coupling>> tables[] = {
      {kAuthentication, AuthenticationCouplings()},
      {kEncryption, EncryptionCouplings()},
      {kMethod8021X, Method8021XCouplings()},
  };
  for (const auto& [oid, rows] : tables) {
    const auto* property = model.FindDescriptor(oid);
    const model::MenuItem* item = property == nullptr ? nullptr : model.ItemOf(*property);
    if (item == nullptr || LiesTooDeep(*item)) continue;
    for (const Coupling& row : rows) {
      if (row.alert.empty()) continue;
      Goal goal;
      goal.kind = GoalKind::kAlert;
      goal.place = PlaceOf(*item);
      goal.path = goal.title = "Alert: " + base::ToUtf8(row.alert);
      Add(goal);
    }
  }
}

void Goals::AddItem(Trial& trial, const model::MenuItem& item) {
  const config::ConfigKey* key = item.Key();
  if (key == nullptr) return;
  Goal goal;
  goal.place = PlaceOf(item);
  goal.path = PathText(item);
  goal.title = base::ToUtf8(base::Trim(item.Title()));
  const auto add = [&](GoalKind kind, std::string what = {}) {
    goal.kind = kind;
    goal.what = std::move(what);
    Add(goal);
  };
  if (!item.IsLeaf() || item.Parent() == nullptr) add(GoalKind::kMenu);
  if (item.Parent() != nullptr) add(GoalKind::kLine);
  if (item.IsLeaf() && model::IsCommand(*key)) add(GoalKind::kCommand);
  if (HasEditor(item)) {
    add(GoalKind::kEditor);
    const auto addChoices = [&](const values::ChoiceFormat& choices) {
      for (const auto& entry : choices.Entries()) add(GoalKind::kChoice, base::ToUtf8(entry.text));
    };
    const values::ChoiceFormat choices = item.Descriptor()->Choices();
    addChoices(choices);
    if (choices.Count() == 0) add(GoalKind::kSave);
    // A list may be the name of a symbol.
    for (const WideString& list : ChoiceListsOf(*key)) addChoices({trial.Symbols().TextOf(list), choices.Mode()});
  }
  if (item.Parent() == nullptr) return;  // the main menu is on no page
  const auto rules = static_cast<int>(RulesOf(*key).size());
  for (goal.rule = 0; goal.rule < rules; ++goal.rule) {
    for (const bool outcome : {true, false}) {
      goal.outcome = outcome;
      add(GoalKind::kRule, OutcomeName(goal.rule, outcome));
    }
  }
}

void Goals::Add(const Goal& goal) {
  if (goals_.size() < kMostGoals && known_.insert(goal.Id()).second) goals_.push_back(goal);
}

bool Goals::Reach(const Goal& goal) {
  Add(goal);
  return reached_.insert(goal.Id()).second;
}

void RuleOutcomes::OnNode(const config::ConfigKey& node, const model::MenuItem* item) {
  path_ = item == nullptr ? std::string() : PathText(*item);
  static_cast<void>(node);
}

void RuleOutcomes::OnDecided(bool, bool holds) {
  if (!path_.empty()) seen_.insert({path_, rule_, holds});
}

}  // namespace authoring
