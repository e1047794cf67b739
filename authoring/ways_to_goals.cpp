#include "authoring/ways_to_goals.h"

#include "authoring/rule_trace.h"
#include "authoring/verdict.h"
#include "authoring/wishes.h"
#include "base/utf8.h"
#include "values/value_types.h"

#include <algorithm>

namespace authoring {
namespace {

constexpr std::size_t kMostWaysToTry = 4;

class WayFinder {
 public:
  WayFinder(const Configuration& configuration, const Goals& goals) : trial_(configuration, &trace_), goals_(goals) {}

  std::map<std::string, WayToGoal> Find() && {
    std::map<ItemPlace, std::vector<Goal>> byItem;
    for (const Goal& goal : goals_.All()) {
      if (!goals_.IsReached(goal)) byItem[goal.place].push_back(goal);
    }
    for (const auto& [place, goals] : byItem) FindFor(place, goals);
    return std::move(ways_);
  }

 private:
  void FindFor(const ItemPlace& place, const std::vector<Goal>& goals) {
    trial_.Rebuild();
    trace_.Clear();
    model::MenuItem* item = ItemAtPlace(trial_.Model(), place);
    if (item == nullptr) return;
    std::vector<SeenRule> rules;
    bool wireless = false;
    const auto collect = [&](const model::MenuItem& of) {
      const Verdict verdict = VerdictOf(trial_, trace_, of);
      rules.insert(rules.end(), verdict.rules.begin(), verdict.rules.end());
      wireless = wireless || !verdict.wireless.empty();
    };
    for (const Goal& goal : goals) wireless = wireless || goal.kind == GoalKind::kAlert;
    const Look look = LookAt(trial_, *item, collect);
    collect(*item);

    std::vector<Aim> aims;
    std::vector<bool> isThere;
    for (const Goal& goal : goals) {
      aims.push_back({AimOf(goal)});
      isThere.push_back(aims.back().isReached(look));
    }
    trial_.Rebuild();
    const std::vector<Lever> levers = LeversOf(trial_, rules, wireless);
    FindChanges(trial_, place, levers, aims, {});
    for (std::size_t i = 0; i < aims.size(); ++i) {
      if (isThere[i]) {
        ways_[goals[i].Id()] = {goals[i], {PreparedWay{}}, "nothing stands in its way, but no key led there", false};
      } else {
        Take(goals[i], aims[i], levers);
      }
    }
  }

  std::function<bool(const Look&)> AimOf(const Goal& goal) {
    switch (goal.kind) {
      case GoalKind::kMenu:
      case GoalKind::kLine:
      case GoalKind::kCommand: return [](const Look& look) { return look.IsShown(); };
      case GoalKind::kEditor:
      case GoalKind::kSave: return [](const Look& look) { return look.IsEditable(); };
      case GoalKind::kChoice:
        return [text = base::FromUtf8(goal.what)](const Look& look) {
          const values::ChoiceFormat choices(look.choiceText, values::KeyMode::kText);
          const bool there = std::any_of(choices.Entries().begin(), choices.Entries().end(),
                                         [&](const auto& entry) { return entry.text == text; });
          return look.IsEditable() && there;
        };
      case GoalKind::kRule:
        return [this, goal](const Look& look) {
          const model::MenuItem* item = ItemAtPlace(trial_.Model(), goal.place);
          const auto& rules = trace_.RulesOf(item->Path());
          const auto number = static_cast<std::size_t>(goal.rule);
          return look.reachable && number < rules.size() && rules[number].holds == goal.outcome;
        };
      case GoalKind::kAlert:
        return [this, goal](const Look&) {
          const auto& shown = trial_.Screen().shown;
          return std::any_of(shown.begin(), shown.end(),
                             [&](const WideString& text) { return "Alert: " + base::ToUtf8(text) == goal.path; });
        };
    }
    return {};
  }

  void Take(const Goal& goal, const Aim& aim, const std::vector<Lever>& levers) {
    WayToGoal& way = ways_[goal.Id()];
    way.goal = goal;
    way.impossible = aim.complete;
    if (way.impossible) {
      way.reason = levers.empty() ? "cannot be: no setting has a say in it"
                                  : "cannot be: no values of " + NamesOf(levers) + " lead there";
    } else if (aim.ways.empty()) {
      way.reason = "no way was found";
    } else {
      way.reason = "the way that was found did not lead there when it was played";
    }
    std::vector<PreparedWay> byDevice;
    for (const auto& changes : aim.ways) {
      PreparedWay prepared = Prepare(changes);
      auto& list = prepared.device.empty() ? way.ways : byDevice;
      // One edit can take away the choice that the next one needs.
      PreparedWay backwards = prepared;
      std::reverse(backwards.edits.begin(), backwards.edits.end());
      if (list.size() < kMostWaysToTry) {
        if (prepared.edits.size() > 1) list.push_back(std::move(backwards));
        list.push_back(std::move(prepared));
      }
      // Where the edits do not work out one after the other, the device may have the values to begin with.
      if (byDevice.size() < kMostWaysToTry) byDevice.push_back({{}, DeviceLines(changes)});
    }
    way.ways.insert(way.ways.end(), byDevice.begin(), byDevice.end());
  }

  std::string NamesOf(const std::vector<Lever>& levers) const {
    std::string names;
    for (const Lever& lever : levers) {
      const auto* property = trial_.Model().FindDescriptor(lever.oid);
      const WideString name(property == nullptr ? WideStringView(lever.oid) : base::Trim(property->DisplayName()));
      names += (names.empty() ? "" : ", ") + base::ToUtf8(name);
    }
    return names;
  }

  PreparedWay Prepare(const std::vector<SettingChange>& changes) {
    PreparedWay prepared;
    std::vector<SettingChange> byDevice;
    for (const SettingChange& change : changes) {
      const Step step = Describe(trial_, change);
      const auto* property = trial_.Model().FindDescriptor(change.oid);
      const model::MenuItem* item = property == nullptr ? nullptr : trial_.Model().ItemOf(*property);
      if (!step.keys || item == nullptr) {
        byDevice.push_back(change);
      } else {
        prepared.edits.push_back(
            {PlaceOf(*item), base::ToUtf8(ShownChoice(*property, step)), base::ToUtf8(change.value)});
      }
    }
    prepared.device = DeviceLines(byDevice);
    return prepared;
  }

  // A flag without choices of its own is chosen by TRUE and FALSE.
  static WideString ShownChoice(const values::PropertyDescriptor& property, const Step& step) {
    if (!step.text.empty() || values::TypeCodeOf(property.HeldType()) != values::TypeCode::kBool) return step.text;
    return WideString(step.change.value == u"1" ? values::kTrueText : values::kFalseText);
  }

  // What the device would have to hold from the start.
  std::string DeviceLines(const std::vector<SettingChange>& changes) {
    if (changes.empty()) return {};
    Assumption assumption(trial_);
    const MemoryDevice before = trial_.Device();
    assumption.AssumeOnDevice(changes);
    std::string lines;
    for (const auto& [oid, entry] :
         std::map<WideString, DeviceEntry>(trial_.Device().Values().begin(), trial_.Device().Values().end())) {
      const simulator::DeviceLine* old = before.Find(oid);
      if (old != nullptr && old->value == entry.line.value) continue;
      simulator::DeviceLine line = entry.line;
      line.oid = oid;
      if (line.type.empty()) line.type = u"Octet String";
      lines += simulator::FormatDeviceLine(line);
      if (!lines.ends_with('\n')) lines += '\n';
    }
    return lines;
  }

  RuleTrace trace_;
  Trial trial_;
  const Goals& goals_;
  std::map<std::string, WayToGoal> ways_;
};

}  // namespace

std::map<std::string, WayToGoal> FindWaysToGoals(const Configuration& configuration, const Goals& goals) {
  return WayFinder(configuration, goals).Find();
}

}  // namespace authoring
