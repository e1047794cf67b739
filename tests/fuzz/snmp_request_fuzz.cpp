// Requests of any kind to an agent: whatever is asked, the answer is one that may be sent, and walks get on.
#include "fuzz_bytes.h"
#include "fuzz_storage.h"
#include "snmp/request_handler.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using fuzz::Bytes;
using fuzz::Require;
using snmp::Request;
using snmp::ValueType;

constexpr std::string_view kSecret = "secret";  // longer than any text of an input
constexpr const char* kAgentsDevice =
    "1.3.1\tInteger\t5\n1.3.2\tOctet String\ttext\n1.3.3\tIP Address\t10.0.0.1\n1.3.4\tBool\t1\treadonly\n"
    "1.3.5\tGauge\t1\tget=0x80004005\n1.3.6\tInteger\t1\tset=0x80004005\n1.3.7\tInteger\t1\tnull\n"
    "1.3.8\tInteger\t1\tdelay=5\n1.3.9\tPassword\tsecret\n1.3.10\tTime Ticks\t1\na|b\tHex\tab\n";

snmp::Variable NextVariable(Bytes& bytes) {
  snmp::Variable variable{{1, 3}, {}};
  for (int left = bytes.Next() % 4; left > 0; --left) variable.oid.push_back(bytes.Next() % 12);
  variable.value.type = static_cast<ValueType>(bytes.Next());
  variable.value.number = static_cast<std::int8_t>(bytes.Next());
  for (int left = bytes.Next() % 6; left > 0; --left) variable.value.bytes.push_back(static_cast<char>(bytes.Next()));
  return variable;
}

bool IsTold(const snmp::Response& response, std::string_view text) {
  return std::any_of(response.variables.begin(), response.variables.end(), [text](const snmp::Variable& variable) {
    return variable.value.bytes.find(text) != std::string::npos;
  });
}

// Each variable of an answer stands behind the one that it was asked from: the request's, or that of the row before.
bool GetsOn(const Request& request, const snmp::Response& response) {
  const bool isBulk = request.command == snmp::Command::kGetBulk;
  const std::size_t asked = request.variables.size();
  const auto once =
      isBulk ? std::min(static_cast<std::size_t>(std::max<std::int64_t>(request.nonRepeaters, 0)), asked) : 0;
  for (std::size_t i = 0; i < response.variables.size(); ++i) {
    const bool isFirst = i < asked;
    const snmp::Oid& from = isFirst ? request.variables[i].oid : response.variables[i - (asked - once)].oid;
    const bool isEnd = response.variables[i].value.type == ValueType::kEndOfMibView;
    if (isEnd ? response.variables[i].oid != from : response.variables[i].oid <= from) return false;
  }
  return true;
}

void Check(const Request& request, snmp::Rights rights, const snmp::Response& response, bool hasChanged) {
  const bool failed = response.status != snmp::ErrorStatus::kNoError;
  const bool isSet = request.command == snmp::Command::kSet;
  const bool isWalk = request.command == snmp::Command::kGetNext || request.command == snmp::Command::kGetBulk;
  Require(!failed || (response.variables.empty() && response.index <= request.variables.size()));
  Require(!hasChanged || (isSet && !failed && rights.write));
  Require(rights.secrets || !IsTold(response, kSecret));
  Require(!isWalk || GetsOn(request, response));
  Require(request.command != snmp::Command::kGet || failed || response.variables.size() == request.variables.size());
}

// All that the device holds, in order.
std::vector<std::string> LinesOf(simulator::DeviceStore& store) {
  std::vector<std::string> lines;
  for (const simulator::DeviceLine& line : store.AllLines()) lines.push_back(FormatDeviceLine(line));
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::Storage kStorage;
  std::ofstream(kStorage.root / "device.txt", std::ios::binary) << kAgentsDevice;
  const auto opened = simulator::DeviceStore::Open(kStorage.root / "device.txt");
  const snmp::DeviceMib mib(*opened.store);
  snmp::RequestHandler handler(*opened.store, mib);
  auto before = LinesOf(*opened.store);
  for (Bytes bytes(data, size); bytes.AreLeft();) {
    const std::uint8_t kind = bytes.Next();
    const snmp::Rights rights{.write = (kind & 4) != 0, .secrets = (kind & 8) != 0};
    Request request{static_cast<snmp::Command>(kind & 3),
                    static_cast<std::int8_t>(bytes.Next()),
                    static_cast<std::int8_t>(bytes.Next()),
                    {}};
    for (int left = kind >> 4; left > 0; --left) request.variables.push_back(NextVariable(bytes));
    Require(handler.DelayOf(request, rights).count() >= 0);
    const snmp::Response response = handler.Answer(request, rights);
    auto after = LinesOf(*opened.store);
    Check(request, rights, response, after != before);
    before = std::move(after);
  }
  return 0;
}
