// Back to a place in the menus after the terminal has started again, by the keys that a person would press.
#pragma once

#include "platform/host/display.h"
#include "simulator/menu_place.h"

#include <optional>

namespace app {
class CKelConfigApp;
}

namespace simulator {

class WayBack {
 public:
  explicit WayBack(MenuPlace place) : place_(std::move(place)) {}

  // The next key, between messages. Nothing: the person is there, or as near as it is possible now.
  std::optional<platform::host::KeyStroke> NextKey(const app::CKelConfigApp& app);

 private:
  MenuPlace place_;
  int keys_ = 0;                              // so far
  const model::MenuItem* entered_ = nullptr;  // by the last Enter; that does not help twice
};

}  // namespace simulator
