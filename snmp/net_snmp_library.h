// The state of net-snmp's library, which a process has once: whoever uses the library holds one of these.
#pragma once

#include "snmp/engine.h"

#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>

namespace snmp {

// While one lives the library reads and writes no file of its own accord, and says nothing on the console. The first
// prepares it, the last ends it; preparing it once more loses some memory (5 KB) of the library's own. The library
// knows no threads: of those that hold one, one at a time may call it.
class NetSnmpLibrary {
 public:
  // What this process is to others; null: it only asks. Counts when there is no other yet.
  explicit NetSnmpLibrary(const Engine* self = nullptr);
  ~NetSnmpLibrary();
  NetSnmpLibrary(const NetSnmpLibrary&) = delete;
  NetSnmpLibrary& operator=(const NetSnmpLibrary&) = delete;
};

}  // namespace snmp
