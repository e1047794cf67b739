// In place of responder.cpp where net-snmp's library is missing.
#include "snmp/responder.h"

namespace snmp {

std::unique_ptr<Responder> OpenResponder(const Endpoint&, Credentials, const std::optional<Engine>&, RequestHandler&,
                                         std::string& problem) {
  problem =
      "this program was built without net-snmp's library and answers no network; install libsnmp-dev and build it "
      "again";
  return nullptr;
}

}  // namespace snmp
