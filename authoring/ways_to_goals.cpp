#include "authoring/ways_to_goals.h"

#include "authoring/items.h"
#include "authoring/line_proofs.h"
#include "authoring/rule_trace.h"
#include "authoring/verdict.h"
#include "authoring/wireless_items.h"
#include "authoring/wishes.h"
#include "base/utf8.h"
#include "values/value_types.h"

#include <algorithm>

namespace authoring {
namespace {

constexpr std::size_t kMostWaysToTry = 4;
constexpr const char* kNotDecidedByWireless = "not decided: the wireless rules have a say in it too";

bool Offers(WideStringView choiceText, const WideString& text) {
  const values::ChoiceFormat choices(choiceText, values::KeyMode::kText);
  return std::any_of(choices.Entries().begin(), choices.Entries().end(),
                     [&](const auto& entry) { return entry.text == text; });
}

class WayFinder {
 public:
  WayFinder(const Configuration& configuration, const Goals& goals)
      : followed_(configuration), survey_(configuration), proofs_(survey_, followed_), goals_(goals) {
    followed_.slot.listener = &trace_;
  }

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
    const WideString oid(OidOf(*item));
    RulesThatCount counting;
    const auto count = [&](const model::MenuItem& of, bool) { counting.Add(VerdictOf(trace_, of)); };
    const Look look = LookAt(trial_, *item, count);
    counting.Add(VerdictOf(trace_, *item));
    std::vector<Aim> aims;
    std::vector<bool> isThere;
    for (const Goal& goal : goals) {
      counting.wireless = counting.wireless || goal.kind == GoalKind::kAlert;
      aims.push_back({AimOf(goal)});
      isThere.push_back(aims.back().isReached(look));
    }
    trial_.Rebuild();
    const std::vector<Lever> levers = LeversOf(survey_, trial_, counting.rules, counting.wireless);
    FindChanges(trial_, place, levers, aims, {});

    std::vector<LineProofs::IsThere> questions;
    questions.reserve(goals.size());
    for (const Goal& goal : goals) questions.push_back(QuestionOf(goal));
    const bool allHaveAWay = std::all_of(aims.begin(), aims.end(), [](const Aim& aim) { return !aim.ways.empty(); });
    const std::vector<Ruling> rulings =
        allHaveAWay ? std::vector<Ruling>(goals.size()) : proofs_.Decide(place, questions);
    for (std::size_t i = 0; i < goals.size(); ++i) {
      if (isThere[i]) {
        ways_[goals[i].Id()] = {goals[i], {PreparedWay{}}, "nothing stands in its way, but no key led there", false};
      } else {
        Take(goals[i], aims[i],
             goals[i].kind == GoalKind::kAlert ? AlertRuling(aims[i], levers)
             : IsOfWireless(goals[i], oid)     ? Ruling{false, kNotDecidedByWireless}
                                               : rulings[i]);
      }
    }
  }

  // The wireless rules decide about it after all others.
  static bool IsOfWireless(const Goal& goal, const WideString& oid) {
    return goal.kind != GoalKind::kRule && (IsSetByWirelessRules(oid) || IsShownByWirelessRules(oid));
  }

  // Alerts are no matter of a line's rules: the values of the settings themselves were tried.
  Ruling AlertRuling(const Aim& aim, const std::vector<Lever>& levers) const {
    if (!aim.complete) return {};
    return {true, levers.empty() ? "no setting has a say in it" : "no values of " + NamesOf(levers) + " lead there"};
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
          return look.IsEditable() && Offers(look.choiceText, text);
        };
      case GoalKind::kRule:
        return [this, goal](const Look& look) {
          const model::MenuItem* item = ItemAtPlace(trial_.Model(), goal.place);
          const auto& rules = trace_.RulesOf(item->Key());
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

  // The same, asked of the line alone in each case of the values.
  static LineProofs::IsThere QuestionOf(const Goal& goal) {
    switch (goal.kind) {
      case GoalKind::kMenu:
      case GoalKind::kLine:
      case GoalKind::kCommand: return [](const LineCase& line) { return line.IsShown(); };
      case GoalKind::kEditor:
      case GoalKind::kSave: return [](const LineCase& line) { return line.IsEditable(); };
      case GoalKind::kChoice:
        return [text = base::FromUtf8(goal.what)](const LineCase& line) {
          const values::PropertyDescriptor* property = line.item.Descriptor();
          return line.IsEditable() && property != nullptr && Offers(property->ChoiceText(), text);
        };
      case GoalKind::kRule:
        return [number = static_cast<std::size_t>(goal.rule), outcome = goal.outcome](const LineCase& line) {
          return number < line.holds.size() && line.holds[number] == outcome;
        };
      case GoalKind::kAlert: break;
    }
    return [](const LineCase&) { return true; };
  }

  void Take(const Goal& goal, const Aim& aim, const Ruling& ruling) {
    WayToGoal& way = ways_[goal.Id()];
    way.goal = goal;
    way.impossible = ruling.impossible && aim.ways.empty();
    if (way.impossible) {
      way.reason = "cannot be: " + ruling.reason;
    } else if (aim.ways.empty()) {
      way.reason = "no way was found" + (ruling.reason.empty() ? "" : "; " + ruling.reason);
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
  FollowedTrial followed_;
  Trial& trial_ = followed_.trial;
  const Survey survey_;
  LineProofs proofs_;
  const Goals& goals_;
  std::map<std::string, WayToGoal> ways_;
};

}  // namespace

std::map<std::string, WayToGoal> FindWaysToGoals(const Configuration& configuration, const Goals& goals) {
  return WayFinder(configuration, goals).Find();
}

}  // namespace authoring
