// An agent on the network: takes datagrams of SNMPv2c and SNMPv3 from a socket and answers them.
#pragma once

#include "snmp/credentials.h"
#include "snmp/endpoint.h"
#include "snmp/engine.h"
#include "snmp/request_handler.h"

#include <memory>
#include <optional>
#include <string>

namespace snmp {

class Responder {
 public:
  virtual ~Responder() = default;

  // Where it listens; the port is the one that the system gave when 0 was asked for.
  virtual Endpoint Where() const = 0;

  // Answers until the descriptor `stop` can be read (-1: there is none) or Stop() was called. A request that takes the
  // device its time holds up no other. One without a word of the credentials gets no answer; who asks in a way that a
  // user may not is told so.
  virtual void Serve(int stop) = 0;
  // From any thread, before Serve() or meanwhile.
  virtual void Stop() = 0;
};

// Null, and one line in `problem`, when the endpoint cannot be listened on. `self` is what users of version 3 know the
// agent by; without one there can be none. One at a time; the handler must live longer.
std::unique_ptr<Responder> OpenResponder(const Endpoint& endpoint, Credentials credentials,
                                         const std::optional<Engine>& self, RequestHandler& handler,
                                         std::string& problem);

}  // namespace snmp
