// A whole configuration as the checks see it.
#pragma once

#include "authoring/checks/subject.h"
#include "authoring/configuration.h"
#include "model/set_triple.h"

#include <deque>
#include <unordered_map>
#include <vector>

namespace authoring {

// The profile that the "*" of an OID stands for.
inline constexpr WideStringView kActiveProfile = u"cfg|80211PM|ActiveProfile";

class Survey {
 public:
  // The configuration has a tree, lives longer, and its terminal is in force as long as this lives.
  explicit Survey(const Configuration& configuration);
  Survey(const Survey&) = delete;
  Survey& operator=(const Survey&) = delete;

  const Configuration& Source() const { return configuration_; }
  const Entries& Menus() const { return entries_; }
  // Each key once, in the order of the menus, the root first.
  const std::vector<Subject>& Subjects() const { return subjects_; }
  // The subject of an entry's key.
  const Subject& Of(const Entry& entry) const;

  // The properties, in the order of the menus; each list has at least one. Null when there is none.
  using Group = std::vector<const Subject*>;
  const Group* WithOid(WideStringView oid) const { return Find(byOid_, oid); }
  // By display name as it is written.
  const Group* WithName(WideStringView name) const { return Find(byName_, name); }

  // What handlers set.
  const std::vector<model::SetTriple>& Triples() const { return triples_; }

  // What the device holds for a property, by its own OID with the active profile filled in. Null: it has no such OID,
  // or nothing is known about the device.
  const DeviceEntry* DeviceEntryOf(const Subject& property) const;
  // A value as the device gives it: nothing also when its Get fails or gives no text.
  const WideString* DeviceText(WideStringView oid) const;
  WideString DeviceOid(const Subject& property) const;

 private:
  using Index = std::unordered_map<WideStringView, Group>;
  static const Group* Find(const Index& index, WideStringView text) {
    const auto found = index.find(text);
    return found == index.end() ? nullptr : &found->second;
  }

  const Configuration& configuration_;
  Entries entries_;
  std::vector<Subject> subjects_;
  std::unordered_map<const config::ConfigKey*, std::size_t> places_;
  Index byOid_;
  Index byName_;
  std::vector<model::SetTriple> triples_;
};

}  // namespace authoring
