// A device on the network that answers anything, late, twice or not at all: what is read is what it has said, what acts
// is done once, and everything comes to an end.
#include "fuzz_bytes.h"
#include "snmp/recording.h"
#include "snmp/snmp_device.h"
#include "snmp/value_codec.h"
#include "snmp/walk.h"
#include "tests/snmp/scripted_session.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using fuzz::Bytes;
using fuzz::Require;
using snmp::Oid;
using snmp::Request;
using snmp::Value;
using snmp::ValueType;
using snmp::Variable;
using Later = ScriptedSession::Later;

const Oid kBase = {1, 3};

Oid OidNumber(std::uint32_t number) { return {1, 3, number}; }

class Device {
 public:
  explicit Device(Bytes& bytes) : bytes_(bytes) {
    session.device = [this](const Request& request) { return Answer(request); };
    session.reopens = [this] { return bytes_.Next() % 2 != 0; };
  }

  // Whether it has ever said so.
  bool HasTold(const Oid& oid, const Value& value) const {
    const auto found = told_.find(oid);
    return found != told_.end() && std::find(found->second.begin(), found->second.end(), value) != found->second.end();
  }
  bool HasToldText(const Oid& oid, const WideString& text) const {
    const auto found = told_.find(oid);
    return found != told_.end() && std::any_of(found->second.begin(), found->second.end(), [&text](const Value& value) {
             return snmp::ReceivedText(value) == text;
           });
  }

  ScriptedSession session;
  int done = 0;  // Sets

 private:
  std::vector<Later> Answer(const Request& request);
  snmp::Response Say(const Request& request, std::uint8_t how);
  Value AnyValue();

  Bytes& bytes_;
  std::map<Oid, Value> values_;
  std::map<Oid, std::vector<Value>> told_;
};

Value Device::AnyValue() {
  constexpr ValueType kTypes[] = {ValueType::kInteger,   ValueType::kOctets,       ValueType::kIpAddress,
                                  ValueType::kCounter32, ValueType::kTimeTicks,    ValueType::kObjectId,
                                  ValueType::kCounter64, ValueType::kNoSuchObject, ValueType::kEndOfMibView};
  const std::uint8_t type = bytes_.Next();
  Value value{type < 16 ? kTypes[type % std::size(kTypes)] : static_cast<ValueType>(type), 0, {}};
  value.number = static_cast<std::int8_t>(bytes_.Next());
  std::size_t size = bytes_.Next() % 8;
  if (size == 7) size = std::size_t{bytes_.Next()} * 256;
  value.bytes.assign(size, static_cast<char>(bytes_.Next()));
  return value;
}

// Each bit of `how` is one thing that a bad device does.
snmp::Response Device::Say(const Request& request, std::uint8_t how) {
  snmp::Response response;
  if ((how & 1) != 0) {
    response.status = static_cast<snmp::ErrorStatus>(bytes_.Next());
    response.index = bytes_.Next() % 40;
  }
  const bool isWalk = request.command == snmp::Command::kGetBulk;
  for (const Variable& asked : request.variables) {
    const auto known = isWalk ? values_.upper_bound(asked.oid) : values_.find(asked.oid);
    const bool isOther = (how & 2) != 0 && bytes_.Next() % 4 == 0;
    Variable variable{known == values_.end() ? asked.oid : known->first, {}};
    if (isOther) {
      variable.oid = OidNumber(bytes_.Next());
      for (int left = bytes_.Next() % 4; left > 0; --left) variable.oid.push_back(bytes_.Next());
    } else if (isWalk && known == values_.end()) {
      variable.oid.back() += bytes_.Next() % 3;
    }
    variable.value = isOther || known == values_.end() ? AnyValue() : known->second;
    response.variables.push_back(std::move(variable));
  }
  if ((how & 4) != 0 && !response.variables.empty()) response.variables.pop_back();
  if ((how & 8) != 0) std::reverse(response.variables.begin(), response.variables.end());
  if ((how & 16) != 0) response.variables.push_back({OidNumber(bytes_.Next()), AnyValue()});
  return response;
}

std::vector<Later> Device::Answer(const Request& request) {
  if (!bytes_.AreLeft()) return {};
  const std::uint8_t how = bytes_.Next();
  if ((how & 3) == 0) return {};
  const std::chrono::milliseconds after(bytes_.Next() * 16);
  if ((how & 3) == 1) return {{after, {}, static_cast<snmp::ArrivalKind>(1 + (how >> 2) % 5)}};
  const bool isSet = request.command == snmp::Command::kSet;
  if (isSet) {
    ++done;
    for (const Variable& variable : request.variables) values_[variable.oid] = variable.value;
  }
  std::vector<Later> answers;
  for (int left = (how & 4) != 0 ? 2 : 1; left > 0; --left) {
    const snmp::Response response = (how & 3) == 2 && isSet ? snmp::Response{} : Say(request, how >> 3);
    if (response.status == snmp::ErrorStatus::kNoError) {
      for (const Variable& variable : response.variables) told_[variable.oid].push_back(variable.value);
    }
    answers.push_back({after * left, response});
  }
  return answers;
}

void Read(Device& device, snmp::Inquiry& inquiry, Bytes& bytes) {
  std::vector<snmp::Wanted> wanted;
  for (std::uint32_t left = bytes.Next(), number = 0; number < left; ++number) wanted.push_back({OidNumber(number)});
  const auto readings = inquiry.Get(wanted);
  Require(readings.size() == wanted.size());
  for (std::size_t i = 0; i < readings.size(); ++i) {
    if (readings[i].code == platform::kOk) Require(device.HasTold(wanted[i].oid, readings[i].value));
  }
}

void Set(Device& device, snmp::Inquiry& inquiry, Bytes& bytes) {
  const bool acts = bytes.Next() % 2 != 0;
  const Variable variable{OidNumber(bytes.Next() % 8), {ValueType::kInteger, bytes.Next(), {}}};
  const int before = device.done;
  inquiry.Set(variable, acts ? snmp::Again::kNever : snmp::Again::kOnce);
  Require(device.done - before <= (acts ? 1 : 2));
}

void Walk(Device& device, snmp::Inquiry& inquiry) {
  const snmp::Walked walked = snmp::Walk(inquiry, kBase);
  for (std::size_t i = 0; i < walked.variables.size(); ++i) {
    const Variable& variable = walked.variables[i];
    Require(device.HasTold(variable.oid, variable.value));
    Require(snmp::IsWithin(variable.oid, kBase) && (i == 0 || walked.variables[i - 1].oid < variable.oid));
  }
}

void UseDevice(Device& device, snmp::Inquiry& inquiry, Bytes& bytes) {
  const auto over = MakeSnmpDevice(inquiry, {});
  const WideString oid = snmp::OidText(OidNumber(bytes.Next() % 8));
  if (bytes.Next() % 2 != 0) {
    over->ReadAhead([&oid] {
      return std::vector<platform::Setting>{{u"1.3.1", u"Bool"}, {oid, u"Hex"}, {oid, u"Hex"}};
    });
  }
  for (int i = 0; i < 2; ++i) {
    std::optional<WideString> text;
    const platform::ResultCode code = over->Get(oid, u"Integer", text);
    Require(text.has_value() == (code == platform::kOk));
    if (text) Require(device.HasToldText(*snmp::OidOf(oid), *text));
    over->Set(oid, u"Integer", text.value_or(u"7"));
  }
}

void Record(Device& device, snmp::Inquiry& inquiry, Bytes& bytes) {
  snmp::RecordingOptions options;
  if (bytes.Next() % 2 != 0) options.root = kBase;
  const std::vector<snmp::Sought> sought = {
      {u"1.3.1", u"Integer"}, {u"1.3.2", u"Password"}, {u"1.3.3", u"Bool"}, {u"x", u""}, {u"1.3.4", u"IP Address"}};
  const snmp::Recording recording = Record(inquiry, sought, options);
  for (const simulator::DeviceLine& line : recording.lines) {
    std::string problem;
    const auto read = simulator::ParseDeviceLine(FormatDeviceLine(line), problem);
    Require(read && read->value == line.value && read->oid == line.oid && read->type == line.type);
    Require(line.oid != u"1.3.2");
    // A name below the root of names may be one that stands elsewhere.
    if (const auto oid = snmp::OidOf(line.oid)) Require(device.HasToldText(*oid, line.value));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bytes bytes(data, size);
  Device device(bytes);
  snmp::Inquiry inquiry(device.session);
  while (bytes.AreLeft()) {
    const auto sent = device.session.sent.size();
    const auto began = device.session.Elapsed();
    switch (bytes.Next() % 5) {
      case 0: Read(device, inquiry, bytes); break;
      case 1: Set(device, inquiry, bytes); break;
      case 2: Walk(device, inquiry); break;
      case 3: UseDevice(device, inquiry, bytes); break;
      default: Record(device, inquiry, bytes); break;
    }
    // Each datagram of a Get is sent four times, for each half anew; one octet at least is what a device says.
    Require(device.session.sent.size() - sent <= 64 + 8 * size);
    Require(device.session.Elapsed() - began <= std::chrono::seconds(60) + size * std::chrono::seconds(4));
    device.session.Pass(std::chrono::seconds(6));
  }
  return 0;
}
