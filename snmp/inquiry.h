// Asks a device over a session for values and sets them, whatever happens to the datagrams.
#pragma once

#include "platform/device.h"
#include "snmp/result_codes.h"
#include "snmp/session.h"

#include <vector>

namespace snmp {

// What is to be read, and how many octets its value will about take.
struct Wanted {
  Oid oid;
  std::size_t valueSize = 16;
};

struct Reading {
  platform::ResultCode code = kTimedOut;
  Value value;  // of kOk; also what is no value, such as kNoSuchObject

  bool Is(const Value& other) const { return code == platform::kOk && value == other; }
};

// Whether a Set of which nothing is heard may be done a second time.
enum class Again { kOnce, kNever };

class Inquiry {
 public:
  // The session must live longer.
  explicit Inquiry(Session& session) : session_(session) {}

  // One reading for each that is wanted, in order. They travel in full datagrams, several at once; each is sent up to
  // four times. A device that answers none of them is left alone for five seconds, in which all fails at once.
  std::vector<Reading> Get(const std::vector<Wanted>& wanted);

  // The answer to one request that may be done more than once, whatever its error is. A failure: there is none.
  platform::ResultCode Ask(const Request& request, Response& response);

  // Where nothing is heard, what the device has then says whether it was done. kTimedOut: nobody knows, or it was not.
  platform::ResultCode Set(const Variable& variable, Again again);

  // Whether the last Set was one of those of which nobody knows whether the device has done it.
  bool IsInDoubt() const { return isInDoubt_; }

  // Why the device does not even read what is asked, since it last answered; kResponse: it does.
  ArrivalKind Refusal() const { return refusal_; }

 private:
  class Reader;
  using Clock = Session::Clock;

  bool IsLeftAlone();
  void LeaveAlone();
  void Heard(const Session::Arrival& arrival);
  std::optional<Session::Arrival> AskInSession(const Request& request);
  Clock::duration UsualWait() const;
  platform::ResultCode Act(const Variable& variable);
  // Nothing: it was sent, and nothing was heard.
  std::optional<platform::ResultCode> SetOnce(const Variable& variable, Clock::duration patience);

  Session& session_;
  std::optional<Clock::time_point> aloneUntil_;
  Clock::duration roundTrip_ = std::chrono::milliseconds(125);  // about
  bool isInDoubt_ = false;
  ArrivalKind refusal_ = ArrivalKind::kResponse;
};

}  // namespace snmp
