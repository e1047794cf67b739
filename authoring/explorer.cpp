#include "authoring/explorer.h"

#include "app/kel_config_app.h"
#include "authoring/storage_copy.h"
#include "authoring/typed_values.h"
#include "authoring/ways_to_goals.h"
#include "base/utf8.h"
#include "simulator/device_store.h"

#include <algorithm>
#include <fstream>
#include <map>

namespace authoring {
namespace {

constexpr int kRounds = 4;
constexpr int kMostTriesOfACommand = 6;

class Explorer {
 public:
  Explorer(const Configuration& configuration, const ExploreTerms& terms)
      : configuration_(configuration), terms_(terms), copy_(configuration), budget_{terms.mostKeys} {}

  Exploration Run() {
    result_.problem = copy_.Problem();
    if (!result_.problem.empty()) return std::move(result_);
    {
      Trial trial(configuration_);
      goals_.emplace(trial);
    }
    for (const ItemPlace& menu : TopMenus()) {
      Play({}, [&](Player& player) { Walk(player, menu); });
    }
    SaveEverything();
    RunCommands();
    std::map<std::string, WayToGoal> ways;
    for (int round = 0; round < kRounds && HasMore(); ++round) {
      const std::size_t before = goals_->ReachedCount();
      ways = FindWaysToGoals(configuration_, *goals_);
      Follow(ways);
      if (goals_->ReachedCount() == before) break;
    }
    Count(ways);
    return std::move(result_);
  }

 private:
  using Act = std::function<void(Player&)>;

  bool HasMore() const { return budget_.keys > 0 && result_.problem.empty(); }

  // From a fresh start; `device`: lines that the device's file gets in addition.
  void Play(const std::string& device, const Act& act) {
    if (!HasMore()) return;
    const std::filesystem::path root = copy_.Fresh();
    if (!device.empty() && !root.empty()) {
      std::ofstream(root / "device.txt", std::ios::binary | std::ios::app) << "\n" << device;
    }
    Player player({root, configuration_.CommandLine(), terms_.widthPx, terms_.heightPx}, *goals_, budget_);
    result_.problem = root.empty() ? "there is no room to play in" : player.Session().Problem();
    if (!result_.problem.empty()) return;
    act(player);
    player.GoTo({});
    if (player.HasFoundSomething()) Keep(player, device);
    if (terms_.progress) terms_.progress(goals_->ReachedCount(), goals_->All().size());
  }

  void Keep(const Player& player, const std::string& device) {
    PlayedScript script;
    const std::string number = std::to_string(result_.scripts.size() + 1);
    script.name = "explore" + std::string(4 - std::min<std::size_t>(3, number.size()) - 1, '0') + number;
    script.findings = player.Findings();
    std::string text;
    for (const std::string& finding : script.findings) text += "# " + finding + "\n";
    for (std::size_t start = 0; start < device.size();) {
      const std::size_t end = device.find('\n', start);
      text += "# device: " + device.substr(start, end - start) + "\n";
      start = end + 1;
    }
    script.text = text + player.Script();
    result_.scripts.push_back(std::move(script));
  }

  // --- what there is as it is ---

  // The main menu and the menus in it.
  std::vector<ItemPlace> TopMenus() const {
    std::vector<ItemPlace> menus{{}};
    for (const Goal& goal : goals_->All()) {
      if (goal.kind == GoalKind::kMenu && goal.place.size() == 1) menus.push_back(goal.place);
    }
    return menus;
  }

  // Each menu from this one on, its pages, and the editors of its lines. Of the main menu only its own lines.
  void Walk(Player& player, const ItemPlace& start) const {
    std::vector<ItemPlace> open{start};
    while (!open.empty() && player.IsRunning()) {
      const ItemPlace place = open.back();
      open.pop_back();
      if (!player.GoTo(place)) continue;
      player.SeeAllPages();
      const model::MenuItem* menu = player.ItemAt(place);
      const std::size_t count = menu == nullptr ? 0 : menu->Children().size();
      for (std::size_t i = 0; i < count && player.IsRunning(); ++i) {
        ItemPlace child = place;
        child.push_back(i);
        const model::MenuItem* item = player.ItemAt(child);
        if (item == nullptr) break;
        if (!item->IsLeaf()) {
          if (!start.empty() && child.size() <= kDeepestGoal) open.push_back(child);
        } else if (IsOpen(GoalKind::kEditor, *item) && player.Activate(child)) {
          player.Settle();
          player.CloseEditor();
        }
      }
    }
  }

  bool IsOpen(GoalKind kind, const model::MenuItem& item) const {
    Goal goal;
    goal.kind = kind;
    goal.path = PathText(item);
    return goals_->IsKnown(goal) && !goals_->IsReached(goal);
  }

  // --- values ---

  std::vector<Goal> Unreached(GoalKind kind) const {
    std::vector<Goal> goals;
    for (const Goal& goal : goals_->All()) {
      if (goal.kind == kind && !goals_->IsReached(goal)) goals.push_back(goal);
    }
    return goals;
  }

  void SaveEverything() {
    std::map<ItemPlace, std::vector<ItemPlace>> byMenu;
    for (const GoalKind kind : {GoalKind::kChoice, GoalKind::kSave}) {
      for (const Goal& goal : Unreached(kind)) {
        if (goal.place.empty()) continue;
        auto& items = byMenu[{goal.place.begin(), goal.place.end() - 1}];
        if (std::find(items.begin(), items.end(), goal.place) == items.end()) items.push_back(goal.place);
      }
    }
    for (const auto& [menu, items] : byMenu) {
      Play({}, [&, &places = items](Player& player) {
        for (const ItemPlace& item : places) SaveAllOf(player, item);
      });
    }
  }

  // Every choice that is offered and was not saved yet, or a value that is typed; and one that is out of range.
  void SaveAllOf(Player& player, const ItemPlace& place) const {
    for (const Goal& goal : Unreached(GoalKind::kChoice)) {
      if (goal.place != place || !player.IsRunning()) continue;
      if (!OpenEditor(player, place)) return;
      player.SaveChoice(goal.what);
    }
    for (const Goal& goal : Unreached(GoalKind::kSave)) {
      if (goal.place != place || !player.IsRunning()) continue;
      const model::MenuItem* item = player.ItemAt(place);
      if (item == nullptr || item->Descriptor() == nullptr) return;
      for (const std::string& text : TypedValues(*item->Descriptor())) {
        if (!OpenEditor(player, place)) return;
        player.SaveText(text);
      }
    }
  }

  static bool OpenEditor(Player& player, const ItemPlace& place) {
    if (!player.Activate(place)) return false;
    player.Settle();
    return FrontOf(player.Session()) == Front::kEditor;
  }

  // --- commands ---

  void RunCommands() {
    for (const Goal& goal : Unreached(GoalKind::kCommand)) {
      // Again while its questions have answers that were not given.
      for (int tries = 0; tries < kMostTriesOfACommand && HasMore(); ++tries) {
        const std::size_t before = goals_->ReachedCount();
        Play({}, [&](Player& player) { RunCommand(player, goal); });
        if (goals_->ReachedCount() == before) break;
      }
    }
  }

  static void RunCommand(Player& player, const Goal& goal) {
    if (!player.Activate(goal.place)) return;
    player.Reach(goal);
    player.Settle();
  }

  // --- the rest ---

  void Follow(const std::map<std::string, WayToGoal>& ways) {
    for (const auto& [id, way] : ways) {
      for (const auto& steps : way.ways) {
        if (goals_->IsReached(way.goal) || !HasMore()) break;
        FollowOne(way.goal, steps);
      }
    }
  }

  void FollowOne(const Goal& goal, const PreparedWay& way) {
    Play(way.device, [&](Player& player) {
      for (const PreparedEdit& edit : way.edits) {
        if (!OpenEditor(player, edit.place)) return;
        if (edit.choice.empty()) {
          player.SaveText(edit.text);
        } else {
          player.SaveChoice(edit.choice);
        }
      }
      if (goal.kind == GoalKind::kMenu) {
        Walk(player, goal.place);
        return;
      }
      if (goal.place.empty()) return;
      if (!player.GoTo({goal.place.begin(), goal.place.end() - 1})) return;
      player.SeeAllPages();
      if (goal.kind == GoalKind::kCommand) RunCommand(player, goal);
      if (goal.kind == GoalKind::kEditor && OpenEditor(player, goal.place)) player.CloseEditor();
      if (goal.kind == GoalKind::kChoice || goal.kind == GoalKind::kSave) SaveAllOf(player, goal.place);
    });
  }

  void Count(const std::map<std::string, WayToGoal>& ways) {
    for (const Goal& goal : goals_->All()) {
      const auto kind = static_cast<std::size_t>(goal.kind);
      ++result_.all[kind];
      if (goals_->IsReached(goal)) {
        ++result_.reached[kind];
        continue;
      }
      const auto way = ways.find(goal.Id());
      authoring::Unreached unreached{goal, "no way was found", false};
      if (way != ways.end()) {
        unreached.reason = way->second.reason;
        unreached.impossible = way->second.impossible;
      }
      if (budget_.keys == 0) unreached.reason = "the keys did not suffice";
      result_.unreached.push_back(std::move(unreached));
    }
    result_.tooDeep = goals_->TooDeep();
    result_.usedUp = budget_.keys == 0;
    result_.keys = terms_.mostKeys - budget_.keys;
  }

  const Configuration& configuration_;
  const ExploreTerms& terms_;
  StorageCopy copy_;
  Player::Budget budget_;
  std::optional<Goals> goals_;
  Exploration result_;
};

}  // namespace

bool Exploration::IsComplete() const {
  return problem.empty() && tooDeep == 0 &&
         std::all_of(unreached.begin(), unreached.end(), [](const Unreached& one) { return one.impossible; });
}

Exploration Explore(const Configuration& configuration, const ExploreTerms& terms) {
  return Explorer(configuration, terms).Run();
}

}  // namespace authoring
