// A way to one device on the network, datagram by datagram: each may be lost, come late, come twice or overtake
// another.
#pragma once

#include "snmp/message.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace snmp {

// What a device says to a message: an answer, or in a report (RFC 3414) why it has not taken it.
enum class ArrivalKind {
  kResponse,
  kUnknownUser,
  kWrongPassword,
  kLevelRefused,  // the user may not ask so openly, or has no such protection
  kOtherEngine,   // not the one that was there, or it counts time otherwise: the session must be opened anew
  kOtherReport,
};

class Session {
 public:
  using Clock = std::chrono::steady_clock;
  using Ticket = std::uint32_t;

  struct Arrival {
    Ticket ticket = 0;  // of the request
    ArrivalKind kind = ArrivalKind::kResponse;
    Response response;  // of kResponse
  };

  virtual ~Session() = default;
  virtual Clock::time_point Now() = 0;

  // Sends once; every call has a ticket of its own. Nothing: it cannot be sent now, or nobody is there to agree on
  // keys.
  virtual std::optional<Ticket> Send(const Request& request) = 0;
  // What comes next, of whatever request; nothing when nothing has come until then.
  virtual std::optional<Arrival> Receive(Clock::time_point until) = 0;

  // Where both sides must agree on something first: forgets all requests and begins anew with whoever answers there
  // now. True when somebody has.
  virtual bool Reopen() = 0;
};

}  // namespace snmp
