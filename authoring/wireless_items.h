// What the wireless rules take a hand in, whatever the other rules say.
#pragma once

#include "rules/wireless_couplings.h"

#include <algorithm>
#include <initializer_list>

namespace authoring {

// They give these properties values and choices of their own.
inline bool IsSetByWirelessRules(WideStringView oid) {
  using namespace rules::wireless;
  const auto known = {kAuthentication, kEncryption, kKeyIndex, kMethod8021X, kKeySetting};
  return std::find(known.begin(), known.end(), oid) != known.end();
}

// They show and hide the lines of these.
inline bool IsShownByWirelessRules(WideStringView oid) {
  using namespace rules::wireless;
  const auto known = {kKeyValue, kKeyIndex, kKeySetting, kSecurityProperties};
  return std::find(known.begin(), known.end(), oid) != known.end();
}

}  // namespace authoring
