// The keys that lead from the main menu to many items, with the device's present values.
#pragma once

#include "authoring/trial.h"

#include <optional>
#include <span>
#include <unordered_map>

namespace authoring {

class MenuKeys {
 public:
  // Opens each menu on the way to one of the items, once and behind those above it.
  MenuKeys(Trial& trial, std::span<model::MenuItem* const> items);

  // To one of these items, one character each, "More..." lines among them. Nothing when a line on the way is not shown
  // or cannot be entered. Empty for the main menu.
  std::optional<WideString> To(const model::MenuItem& item) const;

  // Nobody presses so many: of more the rest is kRest.
  static constexpr std::size_t kMostKeys = 1000;
  static constexpr char16_t kRest = u'\u2026';

 private:
  // Put together when they are asked for: held for every item of deep menus, the keys would need far more room than the
  // menus themselves.
  struct Step {
    const Step* above = nullptr;  // null: the main menu
    WideString keys;              // from the menu on
    std::size_t count = 0;        // of all keys so far
  };
  static Step Behind(const Step& menu, WideString keys);

  std::unordered_map<const model::MenuItem*, Step> steps_;
};

}  // namespace authoring
