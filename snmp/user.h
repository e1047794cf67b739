// A user of SNMPv3, as an agent lets one in and a manager asks as one (RFC 3414).
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace snmp {

enum class AuthProtocol { kMd5, kSha, kSha224, kSha256, kSha384, kSha512 };
enum class PrivProtocol { kDes, kAes, kAes192, kAes256 };

// How a message travels: with nothing but a name, signed, signed and encrypted. The numbers are the protocol's.
enum class SecurityLevel { kNoAuthNoPriv = 1, kAuthNoPriv = 2, kAuthPriv = 3 };

inline constexpr std::size_t kMinPasswordLength = 8;
inline constexpr std::size_t kMaxUserNameLength = 32;  // octets

struct User {
  std::string name;
  AuthProtocol authProtocol = AuthProtocol::kSha256;
  std::string authPassword;  // empty: none
  PrivProtocol privProtocol = PrivProtocol::kAes;
  std::string privPassword;  // empty: none
  std::optional<SecurityLevel> level;
  bool mayWrite = false;

  // The highest that the passwords permit: a manager asks at it.
  SecurityLevel HighestLevel() const {
    if (authPassword.empty()) return SecurityLevel::kNoAuthNoPriv;
    return privPassword.empty() ? SecurityLevel::kAuthNoPriv : SecurityLevel::kAuthPriv;
  }
  // An agent answers at none below it.
  SecurityLevel LeastLevel() const { return level.value_or(HighestLevel()); }

  bool operator==(const User&) const = default;
};

// Empty, or why nobody can ask as this user. Holds nothing of the user.
std::string ProblemOf(const User& user);

}  // namespace snmp
