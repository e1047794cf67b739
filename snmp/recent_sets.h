// The Sets that an agent has just carried out, with their answers: a datagram that the network delivers twice, or that
// a manager sends again because the answer was lost, must not be done again after another Set.
#pragma once

#include "snmp/message.h"

#include <chrono>
#include <deque>
#include <string>

namespace snmp {

class RecentSets {
 public:
  using Clock = std::chrono::steady_clock;

  // Longer than a datagram lives in a network, and than managers have patience.
  static constexpr std::chrono::seconds kKept{10};
  static constexpr std::size_t kMost = 256;

  // Who asked, and as what: whatever tells two senders apart, and the number that the sender gave the request.
  struct Origin {
    std::string sender;
    std::int64_t number = 0;
    bool operator==(const Origin&) const = default;
  };

  // The answer that was given; null when it is another Set. It lives until the next call.
  const Response* Find(const Origin& origin, const std::vector<Variable>& variables, Clock::time_point now);
  void Add(Origin origin, std::vector<Variable> variables, Response response, Clock::time_point now);

 private:
  struct Done {
    Clock::time_point at;
    Origin origin;
    std::vector<Variable> variables;
    Response response;
  };

  void Forget(Clock::time_point now);

  std::deque<Done> done_;  // the oldest first
};

}  // namespace snmp
