#include "settings/menu_walk.h"

#include <algorithm>
#include <utility>

namespace settings {

using model::DisplayState;
using model::MenuItem;

void MenuWalk::Changed(const WideString& oid) {
  for (MenuItem* line : readers_.Of(oid)) outdated_[line->Parent()].push_back(line);
}

void MenuWalk::Fill(MenuItem& menu) {
  trial_.Screen().menu = &menu;
  std::vector<MenuItem*> outdated = std::exchange(outdated_[&menu], {});
  if (filled_.insert(&menu).second) {
    for (const auto& line : menu.Children()) trial_.Rules().dependencies.EvaluateDependencies(*line);
  } else {
    std::unordered_set<const MenuItem*> seen;
    for (MenuItem* line : outdated) {
      if (seen.insert(line).second) trial_.Rules().dependencies.EvaluateDependencies(*line);
    }
  }
  trial_.Rules().handlers.RunEnterHandler(menu);
}

void MenuWalk::Open(MenuItem& menu) {
  host_.Opening(menu);
  open_.push_back(&menu);
  if (menu.Parent() != nullptr) trial_.Rules().handlers.RunEnterHandler(menu);
  Fill(menu);
  host_.Opened(menu);
}

void MenuWalk::Leave() {
  MenuItem& menu = *open_.back();
  trial_.Screen().menu = &menu;
  if (host_.Leaving(menu)) trial_.Rules().handlers.RunExitHandlers(menu);
  host_.Left(menu);
  open_.pop_back();
}

void MenuWalk::LeaveAll() {
  while (!open_.empty()) Leave();
}

const MenuItem* MenuWalk::GoTo(MenuItem& menu, bool through) {
  std::vector<MenuItem*> way;
  for (MenuItem* at = &menu; at != nullptr; at = at->Parent()) way.push_back(at);
  std::reverse(way.begin(), way.end());
  const bool goesUp = open_.size() > way.size() || !std::equal(open_.begin(), open_.end(), way.begin());
  while (open_.size() > way.size() || !std::equal(open_.begin(), open_.end(), way.begin())) Leave();
  if (goesUp && !open_.empty()) Fill(*open_.back());
  for (std::size_t i = open_.size(); i < way.size(); ++i) {
    const DisplayState state = way[i]->State();
    const bool isShut = state == DisplayState::kNotDisplayed || state == DisplayState::kBlank;
    if (isShut && !through) return way[i];
    Open(*way[i]);
  }
  return nullptr;
}

}  // namespace settings
