#include "model/key_walk.h"

namespace model {

std::optional<KeyWalk::Step> KeyWalk::Next() {
  while (!open_.empty()) {
    OpenKey& parent = open_.back();
    if (parent.next < parent.names.size()) return Step{*parent.key, parent.names[parent.next++], open_.size() - 1};
    visits_.Leave(*parent.key);
    open_.pop_back();
  }
  return std::nullopt;
}

bool KeyWalk::IsOwnPlace(const config::ConfigKey& key) const {
  return open_.empty() || (open_.back().atOwnPlace && key.IsChildOf(*open_.back().key));
}

bool KeyWalk::Enter(const config::ConfigKey& key, WideStringView name) {
  if (key.Subkeys().empty()) return false;
  const bool own = IsOwnPlace(key);
  if (!(own ? visits_.EnterOwnPlace(key, name) : visits_.EnterFurtherPlace(key, name))) return false;
  try {
    open_.push_back({&key, own, {key.Subkeys().begin(), key.Subkeys().end()}});
  } catch (...) {
    visits_.Leave(key);
    throw;
  }
  return true;
}

}  // namespace model
