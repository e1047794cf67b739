#include "authoring/manual_pictures.h"

#include "authoring/player.h"
#include "authoring/screen_svg.h"
#include "authoring/secrets.h"
#include "authoring/storage_copy.h"
#include "base/utf8.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>

namespace authoring {
namespace {

// In a picture an editor shows its value; no secret of the storage is to be seen in one.
std::string MaskedLines(Trial& trial, const TerminalCopy& terminal) {
  std::map<WideString, DeviceEntry> masked;
  const auto entryOf = [&](const WideString& oid) -> simulator::DeviceLine* {
    const auto found = terminal.device.find(trial.DeviceOid(oid));
    return found == terminal.device.end() ? nullptr : &masked.emplace(found->first, found->second).first->second.line;
  };
  const auto mask = [](WideString& text, std::size_t from, std::size_t count) {
    for (std::size_t i = from; i < text.size() && i - from < count; ++i) text[i] = u'*';
  };
  std::vector<const model::MenuItem*> items{&trial.Model().Root()};
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
    const values::PropertyDescriptor* property = items[i]->Descriptor();
    if (property == nullptr || !IsSecret(*property)) continue;
    const auto field = property->GetCommandField();
    simulator::DeviceLine* line = entryOf(field ? field->commandOid : property->GetOID());
    if (line == nullptr) continue;
    const auto* command = field ? trial.Model().FindDescriptor(field->commandOid) : nullptr;
    const values::FieldWidthList* layout = command == nullptr ? nullptr : command->CommandLayout();
    if (!field) mask(line->value, 0, line->value.size());
    if (layout == nullptr || layout->Start(field->index) < 0) continue;
    mask(line->value, static_cast<std::size_t>(layout->Start(field->index)),
         static_cast<std::size_t>(std::max(0, layout->Width(field->index))));
  }
  std::string lines;
  for (const auto& [oid, entry] : masked) {
    lines += simulator::FormatDeviceLine(entry.line);
    if (!lines.ends_with('\n')) lines += '\n';
  }
  return lines;
}

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
          if (child.size() <= kDeepestGoal) open.push_back(child);
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
  std::string masked;
  {
    Trial trial(configuration);
    goals.emplace(trial);
    masked = MaskedLines(trial, configuration.Terminal());
  }
  const std::filesystem::path folder = copy.Fresh();
  if (!masked.empty() && !folder.empty()) {
    // Of two lines for one OID the last one counts.
    std::ofstream device(folder / "device.txt", std::ios::binary | std::ios::app);
    if (!(device << '\n' << masked).flush()) pictures.problem = "the pictures' device cannot be written";
    if (!pictures.problem.empty()) return pictures;
  }
  Player::Budget budget{mostKeys};
  Player player({folder, configuration.CommandLine()}, *goals, budget);
  pictures.problem = player.Session().Problem();
  if (pictures.problem.empty()) Photographer(player, *goals, pictures).Walk(progress);
  return pictures;
}

}  // namespace authoring
