// The device's settings over the network.
#pragma once

#include "snmp/inquiry.h"

#include <functional>
#include <memory>

namespace snmp {

// What of a device the protocol does not say.
struct DeviceHabits {
  Oid namesRoot = kNamesRoot;  // below it stand the settings whose names have bars
  bool truthValues = false;    // a "Bool" is 1 or 2 there (TruthValue, RFC 2579), not 1 or 0
  // Whether setting it does something each time, so that it is never set twice; none: nothing does.
  std::function<bool(WideStringView oid, WideStringView type)> acts = {};
  // Is told of one that acts when nobody knows whether the device has done it.
  std::function<void(WideStringView oid)> inDoubt = {};
};

// The inquiry must live longer. The alternate operations reach the same settings.
std::unique_ptr<platform::ISnmpConfig> MakeSnmpDevice(Inquiry& inquiry, DeviceHabits habits);

}  // namespace snmp
