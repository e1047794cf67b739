// Whether typing inserts or overwrites: one flag for all entry fields, flipped by the Insert key.
#pragma once

namespace ui {

struct InsertFlag {
  bool inserts = false;
  void Toggle() { inserts = !inserts; }
};

}  // namespace ui
