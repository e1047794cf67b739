#include "snmp/recent_sets.h"

#include <algorithm>
#include <utility>

namespace snmp {

const Response* RecentSets::Find(const Origin& origin, const std::vector<Variable>& variables, Clock::time_point now) {
  Forget(now);
  const auto found = std::find_if(done_.begin(), done_.end(), [&](const Done& done) {
    return done.origin == origin && done.variables == variables;
  });
  return found == done_.end() ? nullptr : &found->response;
}

void RecentSets::Add(Origin origin, std::vector<Variable> variables, Response response, Clock::time_point now) {
  Forget(now);
  if (done_.size() == kMost) done_.pop_front();
  done_.push_back({now, std::move(origin), std::move(variables), std::move(response)});
}

void RecentSets::Forget(Clock::time_point now) {
  while (!done_.empty() && now - done_.front().at >= kKept) done_.pop_front();
}

}  // namespace snmp
