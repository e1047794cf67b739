// Files that say who may ask: one that is taken makes sense as a whole, one that is refused changes nothing and is not
// said back.
#include "snmp/credentials.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// No message has such letters in a row.
constexpr std::string_view kSecret = "hush";

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const snmp::Credentials before{"look", std::string(kSecret), {}};
  snmp::Credentials credentials = before;
  const std::string problem = ParseCredentials({reinterpret_cast<const char*>(data), size}, credentials);
  if (!problem.empty()) {
    Require(problem.front() == ':' && problem.find(kSecret) == std::string::npos);
    Require(credentials == before);
    return 0;
  }
  for (const snmp::User& user : credentials.users) {
    Require(ProblemOf(user).empty());
    Require(credentials.Find(user.name) == &user);
    Require(user.LeastLevel() <= user.HighestLevel());
  }
  return 0;
}
