#include "authoring/checks/survey.h"

#include <algorithm>

namespace authoring {

Survey::Survey(const Configuration& configuration)
    : configuration_(configuration), entries_(*configuration.Tree(), configuration.RootPath()) {
  subjects_.reserve(entries_.All().size());
  for (const Entry& entry : entries_.All()) {
    if (entry.first != nullptr) continue;
    subjects_.emplace_back(*this, entry);
  }
  for (const Subject& subject : subjects_) {
    for (const WideStringView command : subject.ExitCommands()) {
      const auto triple = model::ParseSetTriple(command.substr(std::min(command.find(u':') + 1, command.size())));
      if (triple) triples_.push_back(*triple);
    }
    if (!subject.IsProperty()) continue;
    byOid_.Add(subject.Oid(), subject);
    byName_.Add(subject.Get(Attribute::kDisplayName), subject);
  }
  byOid_.Sort();
  byName_.Sort();
}

const Subject& Survey::Of(const Entry& entry) const { return subjects_[entry.number]; }

WideString Survey::DeviceOid(const Subject& property) const {
  WideString oid(property.Get(Attribute::kOid));
  const std::size_t star = oid.find(u'*');
  if (star == WideString::npos || property.Resolved(Attribute::kFillOid) != u"Profile") return oid;
  const WideString* profile = DeviceText(kActiveProfile);
  return oid.replace(star, 1, profile == nullptr ? WideString() : *profile);
}

const DeviceEntry* Survey::OnDevice(const Subject& property) const {
  const WideStringView oid = property.Get(Attribute::kOid);
  const auto& device = configuration_.Terminal().device;
  const auto found = oid.find(u'*') == WideStringView::npos ? device.find(oid) : device.find(DeviceOid(property));
  return found == device.end() ? nullptr : &found->second;
}

const WideString* Survey::DeviceText(WideStringView oid) const {
  const auto& device = configuration_.Terminal().device;
  const auto found = device.find(oid);
  return found == device.end() ? nullptr : TextOf(&found->second);
}

const WideString* Survey::TextOf(const DeviceEntry* entry) {
  if (entry == nullptr) return nullptr;
  const simulator::DeviceLine& line = entry->line;
  return line.options.null || line.options.get.value_or(0) != 0 ? nullptr : &line.value;
}

}  // namespace authoring
