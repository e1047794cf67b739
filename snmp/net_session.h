// A session with a device on the network, by net-snmp's library.
#pragma once

#include "snmp/session.h"
#include "snmp/target.h"
#include "snmp/user.h"

#include <memory>
#include <optional>
#include <string>

namespace snmp {

// As whom a device is asked.
struct Login {
  std::string community;     // of version 2c
  std::optional<User> user;  // of version 3, and then the community does not count
};

struct OpenedSession {
  std::unique_ptr<Session> session;  // null: then `problem` is one line that says why
  std::string address;               // the device's, without brackets
  std::string problem;
};

// Empty, or why this program can open none.
std::string WhyNoSession();

// Nothing is sent yet.
OpenedSession OpenSession(const Endpoint& endpoint, Login login);

}  // namespace snmp
