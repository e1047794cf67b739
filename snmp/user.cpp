#include "snmp/user.h"

#include "base/utf8.h"

namespace snmp {
namespace {

bool IsTooShort(const std::string& password) {
  return !password.empty() && base::FromUtf8(password).size() < kMinPasswordLength;
}

}  // namespace

std::string ProblemOf(const User& user) {
  if (user.name.empty()) return "a user needs a name";
  if (user.name.size() > kMaxUserNameLength) return "a user's name has at most 32 octets";
  if (IsTooShort(user.authPassword)) return "the auth-password has fewer than 8 characters";
  if (IsTooShort(user.privPassword)) return "the priv-password has fewer than 8 characters";
  if (user.authPassword.empty() && !user.privPassword.empty()) return "a priv-password takes an auth-password as well";
  // Whoever knows the name is let in: that must be meant.
  if (user.authPassword.empty() && !user.level) return "a user has an auth-password, or level = noAuthNoPriv";
  if (user.LeastLevel() > user.HighestLevel()) return "the level takes a password that is not there";
  return {};
}

}  // namespace snmp
