// In place of responder.cpp where net-snmp's library is missing.
#include "snmp/responder.h"

namespace snmp {

std::unique_ptr<Responder> OpenResponder(const Endpoint&, Credentials, const std::optional<Engine>&, RequestHandler&,
                                         std::string& problem) {
  problem = "built without net-snmp's library; install libsnmp-dev and build again";
  return nullptr;
}

}  // namespace snmp
