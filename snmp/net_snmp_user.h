// A user in net-snmp's library.
#pragma once

#include "snmp/user.h"

#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>

namespace snmp {

// Fills in who asks and how: version 3 at that level, with the keys of the user's passwords, which takes some
// milliseconds. The session points into the user until the library has a copy of it. False: the library lacks the
// protocols.
bool PutUser(const User& user, SecurityLevel level, netsnmp_session& session);

// Lets the user in at this process's own engine. The same.
bool AddOwnUser(const User& user);

}  // namespace snmp
