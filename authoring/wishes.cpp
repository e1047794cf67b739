#include "authoring/wishes.h"

#include "values/value_types.h"

#include <algorithm>

namespace authoring {
namespace {

constexpr std::size_t kMostWays = 12;
// A trial costs about what the configuration has items.
constexpr std::size_t kMostWork = 4'000'000;
constexpr std::size_t kFewestTrials = 60;
constexpr std::size_t kMostTrials = 3000;

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
  Search(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Aim>& aims,
         const Tried& tried)
      : trial_(trial), place_(place), levers_(levers), aims_(aims), tried_(tried), assumption_(trial) {
    most_ = std::clamp(kMostWork / (ItemsOf(trial.Model()).size() + 1), kFewestTrials, kMostTrials);
  }

  void Run() {
    bool whole = levers_.size() <= kMostSteps;
    for (const Lever& lever : levers_) whole = whole && lever.values.size() < kMostValues;
    for (std::size_t steps = 1; steps <= std::min(kMostSteps, levers_.size()); ++steps) {
      open_.clear();
      for (Aim& aim : aims_) {
        if (aim.ways.empty()) open_.push_back(&aim);
      }
      if (open_.empty()) break;
      whole = Choose(0, steps) && whole;
    }
    for (Aim& aim : aims_) aim.complete = aim.ways.empty() && whole;
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
    if (done_++ == most_) return false;
    if (tried_) tried_(done_, most_);
    assumption_.Assume(changes_);
    model::MenuItem* item = ItemAtPlace(trial_.Model(), place_);
    if (item == nullptr) return true;
    const Look look = LookAt(trial_, *item);
    for (Aim* aim : open_) {
      if (aim->ways.size() < kMostWays && aim->isReached(look)) aim->ways.push_back(changes_);
    }
    return true;
  }

  Trial& trial_;
  const ItemPlace& place_;
  const std::vector<Lever>& levers_;
  std::vector<Aim>& aims_;
  const Tried& tried_;
  Assumption assumption_;
  std::vector<Aim*> open_;
  std::vector<SettingChange> changes_;
  std::size_t done_ = 0;
  std::size_t most_ = 0;
};

// A person can give the property this value in its editor.
bool CanBeEntered(const values::PropertyDescriptor& property, const WideString& value) {
  values::PropertyValue parsed;
  property.ParseValue(value, parsed);
  const values::ChoiceFormat choices = property.Choices();
  if (choices.Count() > 0) return choices.IndexOf(parsed).has_value();
  return !value.empty() || values::TypeCodeOf(property.HeldType()) == values::TypeCode::kOctetString;
}

// Only a device that has no value for a setting does it.
bool NeedsAGap(const std::vector<Step>& way) {
  return std::any_of(way.begin(), way.end(), [](const Step& step) { return !step.keys && step.change.value.empty(); });
}

}  // namespace

void FindChanges(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Aim>& aims,
                 const Tried& tried) {
  if (!aims.empty()) Search(trial, place, levers, aims, tried).Run();
}

Step Describe(Trial& trial, const SettingChange& change) {
  trial.Rebuild();  // what an earlier look has narrowed is not to count
  Step step{change, {}, {}, {}};
  const values::PropertyDescriptor* property = trial.Model().FindDescriptor(change.oid);
  if (property == nullptr) return step;
  step.name = base::Trim(property->DisplayName());
  values::PropertyValue value;
  property->ParseValue(change.value, value);
  const values::ChoiceFormat choices = property->Choices();
  if (const auto index = choices.IndexOf(value)) step.text = choices.Entries()[*index].text;
  model::MenuItem* item = trial.Model().ItemOf(*property);
  const bool isEntered = item != nullptr && CanBeEntered(*property, change.value);
  if (isEntered && LookAt(trial, *item).IsEditable()) step.keys = trial.KeysTo(*item);
  return step;
}

void FindWays(Trial& trial, const ItemPlace& place, const std::vector<Lever>& levers, std::vector<Wish>& wishes,
              const Tried& tried) {
  std::vector<Aim> aims;
  aims.reserve(wishes.size());
  for (const Wish& wish : wishes) aims.push_back({[&wish](const Look& look) { return Fulfils(wish, look); }});
  FindChanges(trial, place, levers, aims, tried);
  for (std::size_t i = 0; i < aims.size(); ++i) {
    Wish& wish = wishes[i];
    wish.complete = aims[i].complete;
    for (const auto& changes : aims[i].ways) {
      std::vector<Step>& way = wish.ways.emplace_back();
      for (const SettingChange& change : changes) way.push_back(Describe(trial, change));
    }
    if (!std::all_of(wish.ways.begin(), wish.ways.end(), NeedsAGap)) std::erase_if(wish.ways, NeedsAGap);
    // What can be done at the terminal comes first.
    std::stable_partition(wish.ways.begin(), wish.ways.end(), [](const std::vector<Step>& way) {
      return std::all_of(way.begin(), way.end(), [](const Step& step) { return step.keys.has_value(); });
    });
  }
  trial.Rebuild();
}

}  // namespace authoring
