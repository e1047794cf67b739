// An agent on the network: takes datagrams of SNMPv2c from a socket and answers them.
#pragma once

#include "snmp/credentials.h"
#include "snmp/endpoint.h"
#include "snmp/request_handler.h"

#include <memory>
#include <string>

namespace snmp {

class Responder {
 public:
  virtual ~Responder() = default;

  // Where it listens; the port is the one that the system gave when 0 was asked for.
  virtual Endpoint Where() const = 0;

  // Answers until the descriptor `stop` can be read. A request that takes the device its time holds up no other.
  // Requests without a word of the credentials get no answer.
  virtual void Serve(int stop) = 0;
};

// Null, and one line in `problem`, when the endpoint cannot be listened on. One at a time; the handler must live
// longer.
std::unique_ptr<Responder> OpenResponder(const Endpoint& endpoint, Credentials credentials, RequestHandler& handler,
                                         std::string& problem);

}  // namespace snmp
