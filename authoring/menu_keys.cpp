#include "authoring/menu_keys.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace authoring {
namespace {

using model::MenuItem;

// The items and the menus that they stand in.
std::unordered_set<const MenuItem*> WaysTo(std::span<MenuItem* const> items) {
  std::unordered_set<const MenuItem*> ways;
  for (const MenuItem* at : items) {
    while (at != nullptr && ways.insert(at).second) at = at->Parent();
  }
  return ways;
}

}  // namespace

MenuKeys::MenuKeys(Trial& trial, std::span<MenuItem* const> items) {
  const auto ways = WaysTo(items);
  // A menu in which nothing is looked for is not opened: it might change the device.
  const auto leadsOn = [&ways](const MenuItem& item) {
    const auto& lines = item.Children();
    return std::any_of(lines.begin(), lines.end(), [&](const auto& line) { return ways.contains(line.get()); });
  };
  std::vector<MenuItem*> open{&trial.Model().Root()};
  steps_[open.back()];
  while (!open.empty()) {
    MenuItem& menu = *open.back();
    open.pop_back();
    if (!leadsOn(menu)) continue;
    if (menu.Parent() == nullptr) {
      trial.Enter(menu);
    } else {
      trial.Open(menu);
    }
    auto lines = trial.KeysOfLines(menu);
    std::erase_if(lines, [&ways](const auto& line) { return !ways.contains(line.first); });
    const Step& step = steps_.at(&menu);
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
      open.push_back(line->first);
      steps_.emplace(line->first, Behind(step, std::move(line->second)));
    }
  }
}

MenuKeys::Step MenuKeys::Behind(const Step& menu, WideString keys) {
  const std::size_t count = menu.count + keys.size();
  if (count <= kMostKeys) return {&menu, std::move(keys), count};
  // What lies behind a line that is too far is as far.
  const bool isRest = menu.count > kMostKeys;
  return {isRest ? menu.above : &menu, WideString(1, kRest), count};
}

std::optional<WideString> MenuKeys::To(const MenuItem& item) const {
  const auto found = steps_.find(&item);
  if (found == steps_.end()) return std::nullopt;
  std::vector<WideStringView> way;
  for (const Step* at = &found->second; at != nullptr; at = at->above) way.push_back(at->keys);
  WideString keys;
  for (auto part = way.rbegin(); part != way.rend(); ++part) keys.append(*part);
  return keys;
}

}  // namespace authoring
