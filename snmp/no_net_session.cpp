// In place of net_session.cpp where net-snmp's library is missing.
#include "snmp/net_session.h"

namespace snmp {

std::string WhyNoSession() {
  return "--device takes net-snmp's library, which this program was built without; install libsnmp-dev and build again";
}

OpenedSession OpenSession(const Endpoint&, Login) { return {nullptr, {}, WhyNoSession()}; }

}  // namespace snmp
