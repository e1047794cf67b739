#include "authoring/wishes.h"

#include <algorithm>

namespace authoring {
namespace {

constexpr std::size_t kMostWays = 12;
// A trial costs about what the configuration has items.
constexpr std::size_t kMostWork = 4'000'000;
constexpr std::size_t kFewestTrials = 60;
constexpr std::size_t kMostTrials = 3000;

std::size_t CountItems(const model::MenuItem& root) {
  std::vector<const model::MenuItem*> items{&root};
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
  }
  return items.size();
}

bool Fulfils(const Wish& wish, const Look& look) {
  switch (wish.goal) {
    case Wish::Goal::kShow: return look.IsShown();
    case Wish::Goal::kUnlock: return look.IsEditable();
    case Wish::Goal::kRead: return look.IsShown() && look.available;
    case Wish::Goal::kChoice: {
      const values::ChoiceFormat choices(look.choiceText, values::KeyMode::kText);
      return look.IsShown() && std::any_of(choices.Entries().begin(), choices.Entries().end(),
                                           [&](const auto& entry) { return entry.text == wish.choice; });
    }
  }
  return false;
}

class Search {
 public:
  Search(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Wish>& wishes,
         const Tried& tried)
      : trial_(trial), place_(place), levers_(levers), wishes_(wishes), tried_(tried), assumption_(trial) {
    most_ = std::clamp(kMostWork / (CountItems(trial.Model().Root()) + 1), kFewestTrials, kMostTrials);
  }

  void Run() {
    bool whole = true;
    for (std::size_t steps = 1; steps <= std::min(kMostSteps, levers_.size()); ++steps) {
      open_.clear();
      for (Wish& wish : wishes_) {
        if (wish.ways.empty()) open_.push_back(&wish);
      }
      if (open_.empty()) break;
      whole = Choose(0, steps) && whole;
    }
    for (Wish& wish : wishes_) wish.complete = wish.ways.empty() && whole;
  }

 private:
  // Puts `steps` more changes, of levers from `first` on, to those there are. False when there were too many to try.
  bool Choose(std::size_t first, std::size_t steps) {
    if (steps == 0) return Try();
    for (std::size_t lever = first; lever + steps <= levers_.size(); ++lever) {
      for (const WideString& value : levers_[lever].values) {
        changes_.push_back({levers_[lever].oid, value});
        const bool went = Choose(lever + 1, steps - 1);
        changes_.pop_back();
        if (!went) return false;
      }
    }
    return true;
  }

  bool Try() {
    if (done_ == most_) return false;
    if (tried_)
      tried_(++done_, most_);
    else
      ++done_;
    assumption_.Assume(changes_);
    model::MenuItem* item = ItemAtPlace(trial_.Model(), place_);
    if (item == nullptr) return true;
    const Look look = LookAt(trial_, *item);
    for (Wish* wish : open_) {
      if (wish->ways.size() == kMostWays || !Fulfils(*wish, look)) continue;
      std::vector<Step>& way = wish->ways.emplace_back();
      for (const Change& change : changes_) way.push_back({change, {}, {}, {}});
    }
    return true;
  }

  Trial& trial_;
  const ItemPlace& place_;
  const std::vector<Lever>& levers_;
  std::vector<Wish>& wishes_;
  const Tried& tried_;
  Assumption assumption_;
  std::vector<Wish*> open_;
  std::vector<Change> changes_;
  std::size_t done_ = 0;
  std::size_t most_ = 0;
};

// In people's words, and how to get there as it is now.
void Describe(Trial& trial, Step& step) {
  const values::PropertyDescriptor* property = trial.Model().FindDescriptor(step.change.oid);
  if (property == nullptr) return;
  step.name = base::Trim(property->DisplayName());
  values::PropertyValue value;
  property->ParseValue(step.change.value, value);
  const values::ChoiceFormat choices = property->Choices();
  if (const auto index = choices.IndexOf(value)) step.text = choices.Entries()[*index].text;
  model::MenuItem* item = trial.Model().ItemOf(*property);
  if (item != nullptr && LookAt(trial, *item).IsEditable()) step.keys = trial.KeysTo(*item);
}

}  // namespace

void FindWays(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Wish>& wishes,
              const Tried& tried) {
  if (wishes.empty()) return;
  Search(trial, place, levers, wishes, tried).Run();
  for (Wish& wish : wishes) {
    for (auto& way : wish.ways) {
      for (Step& step : way) {
        trial.Rebuild();  // what one step's look has narrowed is not to count for the next
        Describe(trial, step);
      }
    }
    // What can be done at the terminal comes first.
    std::stable_partition(wish.ways.begin(), wish.ways.end(), [](const std::vector<Step>& way) {
      return std::all_of(way.begin(), way.end(), [](const Step& step) { return step.keys.has_value(); });
    });
  }
  trial.Rebuild();
}

}  // namespace authoring
