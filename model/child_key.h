// From a key to its children.
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"
#include "config/data_store.h"

#include <unordered_map>

namespace model {

// The name is a path of its own ("HKEY" occurs in it) instead of a name below the parent.
bool IsAbsoluteName(WideStringView name);

// The key of a child by its name; null when the tree has none.
const config::ConfigKey* FindChild(const config::PDataStore& tree, const config::ConfigKey& parent,
                                   WideStringView name);

// Several ways of a walk can lead to one key: siblings of one name, a "Descendent", an absolute name. What is below the
// key is gone through each time, but not below itself, and no more than kMost times in all. So a walk is done in a
// number of steps that grows with the configuration's size, whatever its shape.
class KeyVisits {
 public:
  static constexpr int kMost = 16;

  // `walk`: class and method, for the debug lines that name each key that is left out.
  explicit KeyVisits(WideStringView walk) : walk_(walk) {}

  // The walk is below the key now.
  bool LeadsBack(const config::ConfigKey& key, WideStringView name) const;

  // True: the walk may go below the key, up to Leave().
  bool Enter(const config::ConfigKey& key, WideStringView name);
  void Leave(const config::ConfigKey& key) { visits_[&key].open = false; }

 private:
  struct Visits {
    int count = 0;
    bool open = false;
  };

  void Report(WideStringView name, WideStringView reason) const;

  WideStringView walk_;
  std::unordered_map<const config::ConfigKey*, Visits> visits_;
};

}  // namespace model
