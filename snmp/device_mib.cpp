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
    settings_.push_back({std::move(*oid), std::move(line.oid), std::move(line.type), line.options, isSecret});
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
  const auto found = std::lower_bound(settings_.begin(), settings_.end(), oid,
                                      [](const Setting& setting, const Oid& name) { return setting.oid < name; });
  return found == settings_.end() || found->oid != oid ? nullptr : &*found;
}

const Setting* DeviceMib::Next(const Oid& oid, Rights rights) const {
  const std::vector<std::size_t>& walk = rights.secrets ? walkWithSecrets_ : walk_;
  const auto next = std::upper_bound(walk.begin(), walk.end(), oid, [this](const Oid& name, std::size_t place) {
    return name < settings_[place].oid;
  });
  return next == walk.end() ? nullptr : &settings_[*next];
}

}  // namespace snmp
