// Object identifiers as SNMP has them, and how the device's names become such.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace snmp {

// Compares in the order in which an agent is walked.
using Oid = std::vector<std::uint32_t>;

// What a message can hold.
inline constexpr std::size_t kMaxOidLength = 128;

// Below it stand the names that are not numbers ("cfg|80211PM|ActiveProfile"): the number of the name's octets in
// UTF-8, and each octet.
inline const Oid kNamesRoot = {1, 3, 6, 1, 4, 1, 4242, 20, 1};

// How long a device has been up: every agent knows, and whoever says that it does not is there, too.
inline const Oid kUpTime = {1, 3, 6, 1, 2, 1, 1, 3, 0};

// The identifier of a setting: dotted numbers, or a name with bars below `namesRoot`. No two texts have the same.
// Nothing for a text that no message can name: another kind of name, one that is too long, numbers written otherwise
// than they are printed.
std::optional<Oid> OidOf(WideStringView text, const Oid& namesRoot = kNamesRoot);

// The text that has this identifier: a name where one has it, else dotted numbers.
WideString OidText(const Oid& oid, const Oid& namesRoot = kNamesRoot);

// It is the root, or stands below it.
bool IsWithin(const Oid& oid, const Oid& root);

}  // namespace snmp
