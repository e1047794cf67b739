// An agent's answers: Get, GetNext, GetBulk and Set over a device.
#pragma once

#include "snmp/device_mib.h"

#include <chrono>

namespace snmp {

class RequestHandler {
 public:
  // Both must live longer. The store lets no time pass by itself: DelayOf() says how much has to.
  RequestHandler(simulator::DeviceStore& store, const DeviceMib& mib) : store_(store), mib_(mib) {}

  // A Set is done, all of it or nothing, when this returns.
  Response Answer(const Request& request, Rights rights);

  // How long the device takes for that request.
  std::chrono::milliseconds DelayOf(const Request& request, Rights rights);

 private:
  struct Reading;

  Response Read(const Request& request, Reading& reading);
  Response ReadOne(const Request& request, Reading& reading);
  Response ReadBulk(const Request& request, Reading& reading);
  ErrorStatus Get(const Oid& oid, Reading& reading, Value& value);
  Variable Next(const Oid& oid, Reading& reading);
  Value ValueNow(const Setting& setting, Reading& reading);

  Response Set(const Request& request, Rights rights);
  ErrorStatus Check(const Variable& variable, Rights rights, simulator::DeviceStore::Change& change);

  simulator::DeviceStore& store_;
  const DeviceMib& mib_;
};

}  // namespace snmp
