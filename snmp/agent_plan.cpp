#include "snmp/agent_plan.h"

namespace snmp {

std::string PlanAgent(const std::string& option, const std::string& place, const std::filesystem::path& credentialsFile,
                      const Variables& variables, AgentPlan& plan) {
  const auto endpoint = ParseEndpoint(place);
  if (!endpoint) return option + " takes ADDRESS:PORT; an IPv6 address stands in brackets";
  plan.endpoint = *endpoint;
  std::string problem = ReadCredentials(credentialsFile, variables, plan.credentials);
  if (problem.empty() && plan.credentials.IsEmpty()) {
    problem = "nobody may ask yet: set KEL_SNMP_COMMUNITY to a word of yours, or name a file by --credentials";
  }
  return problem;
}

}  // namespace snmp
