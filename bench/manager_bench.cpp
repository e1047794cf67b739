// manager_bench HOST:PORT ROOT COUNT [OCTETS]: the manager reads ROOT.1 to ROOT.COUNT, as the community in
// KEL_SNMP_COMMUNITY, and prints them; what a walking tool does, and as much of it. OCTETS: how long it takes a value
// to be.
#include "base/utf8.h"
#include "snmp/inquiry.h"
#include "snmp/net_session.h"
#include "snmp/value_codec.h"

#include <cstdlib>
#include <iostream>
#include <string>

namespace {

int Complain(const std::string& problem) {
  std::cerr << "manager_bench: " << problem << '\n';
  return 2;
}

int Run(const std::string& place, const std::string& root, unsigned long count, unsigned long octets) {
  const auto endpoint = snmp::ParseEndpoint(place);
  const auto oid = snmp::OidOf(base::FromUtf8(root));
  const char* community = std::getenv("KEL_SNMP_COMMUNITY");
  if (!endpoint || !oid || community == nullptr) return Complain("HOST:PORT ROOT COUNT, and KEL_SNMP_COMMUNITY");
  const auto opened = snmp::OpenSession(*endpoint, {community, {}});
  if (!opened.session) return Complain(opened.problem);
  snmp::Inquiry inquiry(*opened.session);
  std::vector<snmp::Wanted> wanted(count);
  for (std::uint32_t number = 1; number <= count; ++number) {
    if (octets > 0) wanted[number - 1].valueSize = octets;
    snmp::Oid& one = wanted[number - 1].oid;
    one.reserve(oid->size() + 1);
    one.assign(oid->begin(), oid->end());
    one.push_back(number);
  }
  const auto readings = inquiry.Get(wanted);
  constexpr std::size_t kUsualLine = 64;
  std::string lines;
  lines.reserve(readings.size() * kUsualLine);
  for (std::size_t i = 0; i < readings.size(); ++i) {
    const auto text = readings[i].code == platform::kOk ? snmp::ReceivedText(readings[i].value) : std::nullopt;
    if (!text) return Complain("not all could be read");
    lines.append(root).append(".").append(std::to_string(wanted[i].oid.back())).append(" = STRING: \"");
    lines.append(base::ToUtf8(*text)).append("\"\n");
  }
  std::cout << lines;
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4 && count != 5) return Complain("HOST:PORT ROOT COUNT [OCTETS]");
  return Run(arguments[1], arguments[2], std::strtoul(arguments[3], nullptr, 10),
             count == 5 ? std::strtoul(arguments[4], nullptr, 10) : 0);
}
