// A whole configuration as the checks see it.
#pragma once

#include "authoring/checks/subject.h"
#include "authoring/checks/subject_index.h"
#include "authoring/configuration.h"
#include "model/set_triple.h"

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

  // The properties of an OID, in the order of the menus.
  SubjectIndex::Group WithOid(WideStringView oid) const { return byOid_.Find(oid); }
  const std::vector<SubjectIndex::Group>& SharedOids() const { return byOid_.Shared(); }
  // By display name as it is written.
  SubjectIndex::Group WithName(WideStringView name) const { return byName_.Find(name); }

  // What handlers set.
  const std::vector<model::SetTriple>& Triples() const { return triples_; }

  // What Subject::OnDevice() keeps.
  const DeviceEntry* OnDevice(const Subject& property) const;
  // A value as the device gives it: nothing also when its Get fails or gives no text.
  const WideString* DeviceText(WideStringView oid) const;
  static const WideString* TextOf(const DeviceEntry* entry);
  WideString DeviceOid(const Subject& property) const;

 private:
  const Configuration& configuration_;
  Entries entries_;
  std::vector<Subject> subjects_;
  SubjectIndex byOid_;
  SubjectIndex byName_;
  std::vector<model::SetTriple> triples_;
};

}  // namespace authoring
