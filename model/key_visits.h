// How often a walk goes below a key. Several ways can lead to one: siblings of one name, a "Descendent", an absolute
// name. What is below the key is gone through each time, but not below itself, and from other places than its own no
// more than kMost times. So a walk is done in a number of steps that grows with the configuration's size, whatever its
// shape.
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"

#include <unordered_map>

namespace model {

class KeyVisits {
 public:
  static constexpr int kMost = 16;

  // `walk`: class and method, for the debug lines that name each key that is left out.
  explicit KeyVisits(WideStringView walk) : walk_(walk) {}

  // The walk is below the key now.
  bool LeadsBack(const config::ConfigKey& key, WideStringView name) const;

  // True: the walk may go below the key, up to Leave(). A key has one own place, where it is not left out: it is
  // reached there from the root by the names in its path.
  bool EnterOwnPlace(const config::ConfigKey& key, WideStringView name);
  bool EnterFurtherPlace(const config::ConfigKey& key, WideStringView name);
  void Leave(const config::ConfigKey& key) { visits_[&key].open = false; }

 private:
  struct Visits {
    int further = 0;
    bool own = false;
    bool open = false;
  };

  void Report(WideStringView name, WideStringView reason) const;

  WideStringView walk_;
  std::unordered_map<const config::ConfigKey*, Visits> visits_;
};

}  // namespace model
