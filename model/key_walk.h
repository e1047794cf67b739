// A walk down the key tree, depth first, a key before those below it; on a stack of its own, for how deep keys lie is
// the configuration's choice.
//
//     walk.Enter(root, rootName);
//     while (const auto step = walk.Next()) {
//       const config::ConfigKey* key = ...   // what step->name means below step->parent
//       if (key != nullptr) walk.Enter(*key, step->name);
//     }
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"
#include "model/key_visits.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace model {

class KeyWalk {
 public:
  // `name`: class and method, for the debug lines about keys that are left out.
  explicit KeyWalk(WideStringView name) : visits_(name) {}

  // A name below a key, `depth` levels below the names of the root.
  struct Step {
    const config::ConfigKey& parent;
    WideStringView name;
    std::size_t depth;
  };

  // The next name; nothing when all have been gone through.
  std::optional<Step> Next();

  // Goes below a key that the last step has led to, or below the root. False when there is nothing below it, or when
  // the bounds of KeyVisits leave it out.
  bool Enter(const config::ConfigKey& key, WideStringView name);

  // Of the key that was entered last: the names to come, in the order of the source at first.
  std::vector<WideStringView>& Names() { return open_.back().names; }

  // The walk is below the key now: to go there would have no end.
  bool LeadsBack(const config::ConfigKey& key, WideStringView name) const { return visits_.LeadsBack(key, name); }

 private:
  struct OpenKey {
    const config::ConfigKey* key;
    bool atOwnPlace;
    std::vector<WideStringView> names;
    std::size_t next = 0;
  };

  bool IsOwnPlace(const config::ConfigKey& key) const;

  std::vector<OpenKey> open_;
  KeyVisits visits_;
};

}  // namespace model
