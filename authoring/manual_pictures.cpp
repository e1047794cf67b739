#include "authoring/manual_pictures.h"

#include "authoring/player.h"
#include "authoring/screen_svg.h"
#include "authoring/storage_copy.h"
#include "base/utf8.h"

#include <optional>

namespace authoring {
namespace {

// Room for the device; what stands beside it is left out of the picture.
constexpr int kColumns = 100;
constexpr int kRows = 24;

class Photographer {
 public:
  Photographer(Player& player, Goals& goals, ManualPictures& pictures)
      : player_(player), goals_(goals), pictures_(pictures) {}

  // Each menu that can be opened, its pages, and the editors of its lines.
  void Walk(const std::function<void(std::size_t, std::size_t)>& progress) {
    std::vector<ItemPlace> open{{}};
    for (std::size_t done = 0; !open.empty() && player_.IsRunning(); ++done) {
      if (progress) progress(done, done + open.size());
      const ItemPlace place = open.back();
      open.pop_back();
      if (!player_.GoTo(place)) continue;
      TakeMenu();
      const model::MenuItem* menu = player_.ItemAt(place);
      const std::size_t count = menu == nullptr ? 0 : menu->Children().size();
      for (std::size_t i = count; i-- > 0;) {
        ItemPlace child = place;
        child.push_back(i);
        const model::MenuItem* item = player_.ItemAt(child);
        if (item == nullptr) break;
        if (!item->IsLeaf()) {
          open.push_back(child);
        } else if (CanBeEdited(*item) && !pictures_.editors.contains(PathText(*item)) && player_.Activate(child)) {
          TakeEditor(PathText(*item));
        }
      }
    }
  }

 private:
  bool CanBeEdited(const model::MenuItem& item) const {
    Goal goal;
    goal.kind = GoalKind::kEditor;
    goal.path = PathText(item);
    return goals_.IsKnown(goal);
  }

  std::string Picture(const std::string& label) {
    return ScreenSvg(player_.Session().Paint(kColumns, kRows).grid, label);
  }

  void TakeMenu() {
    const model::MenuItem* menu = player_.CurrentMenu();
    auto& pages = pictures_.menus[PathText(*menu)];
    if (!pages.empty()) return;
    const std::string title = base::ToUtf8(base::Trim(menu->Title()));
    pages.push_back(Picture("The menu " + title));
    player_.SeeAllPages([&] { pages.push_back(Picture("The menu " + title + ", a further page")); });
  }

  void TakeEditor(const std::string& path) {
    if (FrontOf(player_.Session()) == Front::kEditor) {
      pictures_.editors[path] = Picture("The editor of " + path.substr(path.rfind('\\') + 1));
    }
    player_.Settle();
    player_.CloseEditor();
  }

  Player& player_;
  Goals& goals_;
  ManualPictures& pictures_;
};

}  // namespace

ManualPictures TakePictures(const Configuration& configuration, std::size_t mostKeys,
                            const std::function<void(std::size_t, std::size_t)>& progress) {
  ManualPictures pictures;
  const StorageCopy copy(configuration);
  pictures.problem = copy.Problem();
  if (!pictures.problem.empty()) return pictures;
  std::optional<Goals> goals;
  {
    Trial trial(configuration);
    goals.emplace(trial);
  }
  Player::Budget budget{mostKeys};
  Player player({copy.Fresh(), configuration.CommandLine()}, *goals, budget);
  pictures.problem = player.Session().Problem();
  if (pictures.problem.empty()) Photographer(player, *goals, pictures).Walk(progress);
  return pictures;
}

}  // namespace authoring
