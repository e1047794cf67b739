// What there is to see in a configuration: a list of goals, and which of them were reached.
#pragma once

#include "authoring/assumption.h"
#include "rules/rule_listener.h"

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace authoring {

enum class GoalKind { kMenu, kLine, kEditor, kChoice, kSave, kCommand, kRule, kAlert };
inline constexpr std::size_t kGoalKinds = 8;
const char* NameOf(GoalKind kind);  // "menu", "line" ...

// Nobody walks through more menus, one within the other. What lies deeper is not gone for: the ways to all of it would
// need far more room than the menus themselves.
inline constexpr std::size_t kDeepestGoal = 100;

struct Goal {
  GoalKind kind = GoalKind::kMenu;
  ItemPlace place;    // of the item; of kAlert the setting that it is about, if any
  std::string path;   // the item's; of kAlert the text
  std::string title;  // as people know it
  std::string what;   // the choice, the rule and its outcome ("Dependency1: no"), the answer
  int rule = 0;
  bool outcome = false;  // of kRule

  std::string Id() const;  // "choice Network\Speed: High"
};

// "Dependency1: no"
std::string OutcomeName(int rule, bool holds);

class Goals {
 public:
  // All that the configuration itself promises. The choices that rules can bring are among them.
  explicit Goals(Trial& trial);

  const std::vector<Goal>& All() const { return goals_; }
  bool IsReached(const Goal& goal) const { return reached_.contains(goal.Id()); }
  // It is on the list.
  bool IsKnown(const Goal& goal) const { return known_.contains(goal.Id()); }
  std::size_t ReachedCount() const { return reached_.size(); }
  // How many entries lie too deep to be goals.
  std::size_t TooDeep() const { return tooDeep_; }

  // Marks the goal as reached; one that was not on the list is put there. True: that is new.
  bool Reach(const Goal& goal);
  void Add(const Goal& goal);

 private:
  void AddItem(Trial& trial, const model::MenuItem& item);
  void AddWirelessAlerts(const model::MenuModel& model);

  std::vector<Goal> goals_;
  std::set<std::string> known_;
  std::set<std::string> reached_;
  std::size_t tooDeep_ = 0;
};

// The rules' outcomes, as they happen.
class RuleOutcomes final : public rules::RuleListener {
 public:
  struct Outcome {
    std::string path;
    int rule = 0;
    bool holds = false;
    bool operator<(const Outcome& other) const {
      return std::tie(path, rule, holds) < std::tie(other.path, other.rule, other.holds);
    }
  };

  // Since the last time, each once.
  std::set<Outcome> Take() { return std::exchange(seen_, {}); }

  void OnNode(const config::ConfigKey& node, const model::MenuItem* item) override;
  void OnRule(int number, WideStringView) override { rule_ = number; }
  void OnDecided(bool isCondition, bool holds) override;

 private:
  std::string path_;
  int rule_ = 0;
  std::set<Outcome> seen_;
};

// "Network\Speed" for an item or a key below the root.
std::string PathText(const model::MenuItem& item);

}  // namespace authoring
