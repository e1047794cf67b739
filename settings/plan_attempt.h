// One attempt to make all wanted changes in a certain order, as a person at the menus would, on a device in memory.
#pragma once

#include "settings/entered_value.h"
#include "settings/menu_walk.h"
#include "settings/plan.h"
#include "settings/refusal_reasons.h"
#include "ui/property_editors.h"

#include <set>
#include <unordered_map>
#include <utility>

namespace settings {

// The first of each pair is to be set before the second, by their places among the wanted settings.
using Orders = std::set<std::pair<std::size_t, std::size_t>>;

class PlanAttempt final : public MenuWalk::Host {
 public:
  PlanAttempt(const authoring::Configuration& configuration, const std::vector<WantedSetting>& wanted,
              const Orders& orders, const PlanOptions& options);

  void Run();

  // What came of it; `wanted` is left empty.
  const Plan& Result() const { return plan_; }
  // Which other orders may have less refused.
  const Orders& Suggested() const { return suggested_; }

 private:
  enum class State { kPending, kPresent, kSet };

  struct Entry {
    model::MenuItem* item = nullptr;
    State state = State::kPending;
    Reason reason;  // why it was refused last
    std::optional<values::PropertyValue> settled;
    std::vector<std::size_t> after;  // those to be set before
  };
  struct Menu {
    model::MenuItem* item = nullptr;
    std::vector<std::size_t> entries;
  };
  // A menu that is open, and what was there before it was opened.
  struct Open {
    std::size_t writes = 0;
    std::size_t sets = 0;
    std::size_t remarks = 0;
    std::vector<std::size_t> changed;  // wanted settings that were set in it or below
  };

  void Opening(model::MenuItem& menu) override;
  void Opened(model::MenuItem& menu) override;
  bool Leaving(model::MenuItem& menu) override;
  void Left(model::MenuItem& menu) override;

  std::vector<Menu> MenusOf() const;
  void NotePresent();
  bool Sweep(const std::vector<Menu>& menus);
  bool SweepMenu(const Menu& menu);
  bool IsBlocked(const Entry& entry) const;
  bool TryToSet(std::size_t number);
  bool Refuse(Entry& entry, Reason reason) const;
  bool Edit(std::size_t number, const EnteredValue& entered);
  void RunAfterEdit(model::MenuItem& item);
  void ReadAgain(const Entry& entry);
  bool LooksAsWanted(std::size_t number);
  void TakeBack(const Open& open);
  void Collect(PlannedSet::Origin origin, const std::vector<std::size_t>& causes);
  void CollectRemarks();
  PlannedSet SetOf(const authoring::MemoryDevice::Write& write) const;
  // By the OID of a setting, the wanted settings that it was set for.
  using Causes = std::unordered_map<WideString, std::vector<std::size_t>>;
  void Suggest(std::size_t number, const Causes& causes);
  std::size_t RevisitOverwritten();
  void Finish();

  const std::vector<WantedSetting>& wanted_;
  const PlanOptions options_;
  RuleReaders readers_;
  authoring::Trial trial_;
  values::ValueCommitter committer_;
  const ui::EditorTable editors_;
  MenuWalk walk_;

  std::vector<Entry> entries_;
  std::vector<Open> open_;
  bool released_ = false;     // the order no longer counts
  std::size_t collected_ = 0;  // writes of the device in memory that the plan has
  std::unordered_map<WideString, std::optional<WideString>> texts_;  // the device's, of what was written so far
  Plan plan_;
  Orders suggested_;
};

}  // namespace settings
