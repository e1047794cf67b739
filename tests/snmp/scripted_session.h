// A session with a device that does what a test says, in a time of the test's own.
#pragma once

#include "snmp/session.h"

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

class ScriptedSession final : public snmp::Session {
 public:
  // Something that comes for a request, so much later.
  struct Later {
    std::chrono::milliseconds after{10};
    snmp::Response response;
    snmp::ArrivalKind kind = snmp::ArrivalKind::kResponse;
  };

  // What comes of a request: nothing, an answer, or as many as it likes.
  std::function<std::vector<Later>(const snmp::Request& request)> device;
  std::function<bool()> reopens = [] { return false; };
  bool canSend = true;

  std::vector<snmp::Request> sent;
  std::size_t mostUnderWay = 0;
  int reopened = 0;

  Clock::time_point Now() override { return now_; }

  std::optional<Ticket> Send(const snmp::Request& request) override {
    if (!canSend) return std::nullopt;
    sent.push_back(request);
    const auto ticket = static_cast<Ticket>(sent.size());
    for (Later& later : device(request)) {
      arrivals_.emplace(now_ + later.after, Arrival{ticket, later.kind, std::move(later.response)});
    }
    mostUnderWay = std::max(mostUnderWay, arrivals_.size());
    return ticket;
  }

  std::optional<Arrival> Receive(Clock::time_point until) override {
    const auto first = arrivals_.begin();
    if (first == arrivals_.end() || first->first > until) {
      now_ = std::max(now_, until);
      return std::nullopt;
    }
    now_ = std::max(now_, first->first);
    Arrival arrival = std::move(first->second);
    arrivals_.erase(first);
    return arrival;
  }

  bool Reopen() override {
    ++reopened;
    if (!reopens()) return false;
    arrivals_.clear();
    return true;
  }

  void Pass(std::chrono::milliseconds time) { now_ += time; }
  std::chrono::milliseconds Elapsed() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(now_ - start_);
  }

 private:
  const Clock::time_point start_{std::chrono::hours(1)};
  Clock::time_point now_ = start_;
  std::multimap<Clock::time_point, Arrival> arrivals_;
};
