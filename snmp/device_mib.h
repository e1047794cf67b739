// A device store as an agent sees it: its settings in the order of their object identifiers.
#pragma once

#include "simulator/device_store.h"
#include "snmp/message.h"

#include <vector>

namespace snmp {

// What a request may do.
struct Rights {
  bool write = false;
  bool secrets = false;  // read and set passwords and keys: only where nobody listens
};

struct Setting {
  Oid oid;
  WideString oidText;
  WideString type;
  const simulator::DeviceLine* line = nullptr;  // the store's
  simulator::DeviceOptions options;
  bool isSecret = false;

  bool IsVisible(Rights rights) const { return rights.secrets || !isSecret; }
  bool Fails() const { return options.get && *options.get < 0; }
};

// The store's settings never come or go: only their values change. Of one thread at a time.
class DeviceMib {
 public:
  // The store must live longer.
  explicit DeviceMib(simulator::DeviceStore& store);
  DeviceMib(const DeviceMib&) = delete;
  DeviceMib& operator=(const DeviceMib&) = delete;

  // Null when there is none of that name. It lives as long as this object.
  const Setting* Find(const Oid& oid) const;
  // The next that a walk meets: those without a value, and those that cannot be seen, it does not stop at.
  const Setting* Next(const Oid& oid, Rights rights) const;

  // Whether reading or setting any takes time.
  bool HasDelays() const { return hasDelays_; }

  // OIDs of the store that no message can name, in order.
  const std::vector<WideString>& Unserved() const { return unserved_; }

 private:
  std::vector<Setting> settings_;
  // Places in settings_.
  std::vector<std::size_t> walk_;
  std::vector<std::size_t> walkWithSecrets_;
  std::vector<WideString> unserved_;
  // Who asks for many mostly does so in order: where the next is to be found, if it is.
  mutable std::size_t nextFound_ = 0;   // in settings_
  mutable std::size_t nextWalked_ = 0;  // in one of the walks
  bool hasDelays_ = false;
};

}  // namespace snmp
