#include "snmp/device_mib.h"

#include "snmp/value_codec.h"

#include <algorithm>
#include <utility>

namespace snmp {

DeviceMib::DeviceMib(simulator::DeviceStore& store) {
  for (simulator::DeviceLine& line : store.AllLines()) {
    auto oid = OidOf(line.oid);
    if (!oid) {
      unserved_.push_back(std::move(line.oid));
      continue;
    }
    hasDelays_ = hasDelays_ || line.options.delayMs > 0;
    const bool isSecret = IsSecret(line.type);
    const simulator::DeviceLine* place = store.Find(line.oid);
    settings_.push_back({std::move(*oid), std::move(line.oid), std::move(line.type), place, line.options, isSecret});
  }
  std::sort(unserved_.begin(), unserved_.end());
  std::sort(settings_.begin(), settings_.end(), [](const Setting& a, const Setting& b) { return a.oid < b.oid; });
  for (std::size_t i = 0; i < settings_.size(); ++i) {
    const Setting& setting = settings_[i];
    if (setting.Fails() || setting.options.null) continue;
    walkWithSecrets_.push_back(i);
    if (!setting.isSecret) walk_.push_back(i);
  }
}

const Setting* DeviceMib::Find(const Oid& oid) const {
  const bool isNext = nextFound_ < settings_.size() && settings_[nextFound_].oid == oid;
  if (isNext) return &settings_[nextFound_++];
  const auto found = std::lower_bound(settings_.begin(), settings_.end(), oid,
                                      [](const Setting& setting, const Oid& name) { return setting.oid < name; });
  if (found == settings_.end() || found->oid != oid) return nullptr;
  nextFound_ = static_cast<std::size_t>(found - settings_.begin()) + 1;
  return &*found;
}

const Setting* DeviceMib::Next(const Oid& oid, Rights rights) const {
  const std::vector<std::size_t>& walk = rights.secrets ? walkWithSecrets_ : walk_;
  const bool isNext = nextWalked_ > 0 && nextWalked_ <= walk.size() && settings_[walk[nextWalked_ - 1]].oid == oid;
  if (!isNext) {
    const auto next = std::upper_bound(walk.begin(), walk.end(), oid, [this](const Oid& name, std::size_t place) {
      return name < settings_[place].oid;
    });
    nextWalked_ = static_cast<std::size_t>(next - walk.begin());
  }
  return nextWalked_ == walk.size() ? nullptr : &settings_[walk[nextWalked_++]];
}

}  // namespace snmp
