// What an agent is to be, out of what a person says of it.
#pragma once

#include "snmp/credentials.h"
#include "snmp/endpoint.h"
#include "snmp/engine.h"

#include <filesystem>
#include <string>

namespace snmp {

inline constexpr const char* kUsualPlace = "127.0.0.1:1161";

struct AgentPlan {
  Endpoint endpoint;
  Credentials credentials;
  // Where its engine is kept, for its users; empty: there is no place for one.
  std::filesystem::path engineFile = {};
  simulator::SyncFile sync = {};  // of that file
};

// The place and those who may ask. Empty, or one line: the option is the place's, for a place that is none.
std::string PlanAgent(const std::string& option, const std::string& place, const std::filesystem::path& credentialsFile,
                      const Variables& variables, AgentPlan& plan);

}  // namespace snmp
