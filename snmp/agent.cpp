#include "snmp/agent.h"

#include "base/utf8.h"

#include <optional>

namespace snmp {
namespace {

// Nothing without a problem: nobody needs one.
std::optional<Engine> EngineOf(const AgentPlan& plan, std::string& problem) {
  if (plan.credentials.users.empty()) return std::nullopt;
  if (plan.engineFile.empty()) {
    problem = "neither XDG_STATE_HOME nor HOME is set: there is no place for what users know this agent by";
    return std::nullopt;
  }
  return StartEngine(plan.engineFile, plan.sync, problem);
}

}  // namespace

std::unique_ptr<Agent> Agent::Open(simulator::DeviceStore& store, const AgentPlan& plan, std::string& problem) {
  std::unique_ptr<Agent> agent(new Agent(store));
  const auto engine = EngineOf(plan, problem);
  if (!problem.empty()) return nullptr;
  agent->responder_ = OpenResponder(plan.endpoint, plan.credentials, engine, agent->handler_, problem);
  if (agent->responder_ == nullptr) return nullptr;
  return agent;
}

std::vector<std::string> Agent::Remarks() const {
  std::vector<std::string> remarks;
  for (const WideString& oid : mib_.Unserved()) {
    remarks.push_back("device.txt: " + base::ToUtf8(oid) + " is no OID that SNMP can name: it is not served");
  }
  return remarks;
}

}  // namespace snmp
