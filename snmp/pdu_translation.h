// Requests and responses as net-snmp's library holds them.
#pragma once

#include "snmp/message.h"

#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>

#include <memory>
#include <optional>

namespace snmp {

struct FreePdu {
  void operator()(netsnmp_pdu* pdu) const { snmp_free_pdu(pdu); }
};
using OwnPdu = std::unique_ptr<netsnmp_pdu, FreePdu>;

// --- of an agent ---

// Nothing when it is no request that an agent answers.
std::optional<Request> RequestOf(const netsnmp_pdu& pdu);

// Makes of a copy of the request what is sent back to where it came from.
void MakeResponse(const Response& response, netsnmp_pdu& copy);

// --- of a manager ---

// Null when there is no memory.
OwnPdu PduOf(const Request& request);

Response ResponseOf(const netsnmp_pdu& pdu);

}  // namespace snmp
