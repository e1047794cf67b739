// What an entry is, by the attributes of its key.
#pragma once

#include "config/config_key.h"

namespace model {

// Of a property: its OID, or without one its command OID; empty for all others.
inline WideStringView OidOf(const config::ConfigKey& key) {
  const WideStringView oid = key.Value(TextId::kOid);
  return oid.empty() ? key.Value(TextId::kCmdOid) : oid;
}

// Enter runs something.
inline bool IsCommand(const config::ConfigKey& key) {
  return !key.Value(TextId::kFunction).empty() || !key.Value(TextId::kAppName).empty();
}

}  // namespace model
