#include "snmp/pdu_translation.h"

#include <algorithm>
#include <array>
#include <utility>

namespace snmp {
namespace {

const std::pair<int, Command> kCommands[] = {
    {SNMP_MSG_GET, Command::kGet},
    {SNMP_MSG_GETNEXT, Command::kGetNext},
    {SNMP_MSG_GETBULK, Command::kGetBulk},
    {SNMP_MSG_SET, Command::kSet},
};

std::string Dotted(const oid* numbers, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text.append(i == 0 ? "" : ".").append(std::to_string(numbers[i]));
  return text;
}

Value ValueOf(const netsnmp_variable_list& from) {
  Value value{static_cast<ValueType>(from.type), 0, {}};
  switch (value.type) {
    case ValueType::kInteger:
    case ValueType::kCounter32:
    case ValueType::kGauge32:
    case ValueType::kTimeTicks: value.number = *from.val.integer; break;
    case ValueType::kOctets:
    case ValueType::kOpaque:
    case ValueType::kIpAddress:
      if (from.val_len > 0) value.bytes.assign(reinterpret_cast<const char*>(from.val.string), from.val_len);
      break;
    case ValueType::kObjectId:
      if (from.val_len > 0) value.bytes = Dotted(from.val.objid, from.val_len / sizeof(oid));
      break;
    case ValueType::kCounter64: {
      const auto bits = std::uint64_t{from.val.counter64->high} << 32 | (from.val.counter64->low & 0xFFFF'FFFFu);
      value.number = static_cast<std::int64_t>(bits);
      break;
    }
    default: break;
  }
  return value;
}

std::vector<Variable> VariablesOf(const netsnmp_pdu& pdu) {
  std::vector<Variable> variables;
  variables.reserve(static_cast<std::size_t>(count_varbinds(pdu.variables)));
  for (const netsnmp_variable_list* from = pdu.variables; from != nullptr; from = from->next_variable) {
    Variable& variable = variables.emplace_back();
    variable.oid.resize(from->name_length);
    std::transform(from->name, from->name + from->name_length, variable.oid.begin(),
                   [](oid number) { return static_cast<std::uint32_t>(number); });
    variable.value = ValueOf(*from);
  }
  return variables;
}

// Adds behind `last`, which is null at first, and returns what is last then; null: there is no memory.
netsnmp_variable_list* Append(const Variable& variable, netsnmp_pdu& pdu, netsnmp_variable_list* last) {
  std::array<oid, MAX_OID_LEN> name = {};
  const std::size_t length = std::min(variable.oid.size(), name.size());
  std::copy_n(variable.oid.begin(), length, name.begin());
  const auto type = static_cast<u_char>(variable.value.type);
  netsnmp_variable_list** list = last == nullptr ? &pdu.variables : &last->next_variable;
  const auto add = [&](const void* bytes, std::size_t size) {
    return snmp_varlist_add_variable(list, name.data(), length, type, bytes, size);
  };
  switch (variable.value.type) {
    case ValueType::kInteger:
    case ValueType::kCounter32:
    case ValueType::kGauge32:
    case ValueType::kTimeTicks: {
      const long number = variable.value.number;
      return add(&number, sizeof number);
    }
    default: return add(variable.value.bytes.data(), variable.value.bytes.size());
  }
}

// Of a message that its receiver takes.
std::size_t RoomOf(long messageSize) {
  constexpr long kHeaders = 200;
  return static_cast<std::size_t>(std::clamp(messageSize - kHeaders, 0L, static_cast<long>(kMostRoom)));
}

bool AppendAll(const std::vector<Variable>& variables, netsnmp_pdu& pdu) {
  netsnmp_variable_list* last = nullptr;
  return std::all_of(variables.begin(), variables.end(), [&](const Variable& variable) {
    last = Append(variable, pdu, last);
    return last != nullptr;
  });
}

}  // namespace

std::optional<Request> RequestOf(const netsnmp_pdu& pdu) {
  const auto* const known = std::find_if(std::begin(kCommands), std::end(kCommands),
                                         [&pdu](const auto& command) { return command.first == pdu.command; });
  if (known == std::end(kCommands)) return std::nullopt;
  Request request{known->second, pdu.non_repeaters, pdu.max_repetitions, VariablesOf(pdu)};
  if (pdu.version == SNMP_VERSION_3) request.room = RoomOf(pdu.msgMaxSize);
  return request;
}

void MakeResponse(const Response& response, netsnmp_pdu& copy) {
  const bool givesBack = copy.command == SNMP_MSG_SET || response.status != ErrorStatus::kNoError;
  copy.command = SNMP_MSG_RESPONSE;
  copy.errstat = static_cast<long>(response.status);
  copy.errindex = static_cast<long>(response.index);
  if (givesBack && response.status != ErrorStatus::kTooBig) return;
  snmp_free_varbind(std::exchange(copy.variables, nullptr));
  AppendAll(response.variables, copy);
}

OwnPdu PduOf(const Request& request) {
  const auto* const known = std::find_if(std::begin(kCommands), std::end(kCommands),
                                         [&request](const auto& command) { return command.second == request.command; });
  OwnPdu pdu(snmp_pdu_create(known->first));
  if (pdu && !AppendAll(request.variables, *pdu)) pdu.reset();
  if (pdu && request.command == Command::kGetBulk) {
    pdu->non_repeaters = static_cast<long>(request.nonRepeaters);
    pdu->max_repetitions = static_cast<long>(request.maxRepetitions);
  }
  return pdu;
}

Response ResponseOf(const netsnmp_pdu& pdu) {
  const std::size_t index = pdu.errindex < 0 ? 0 : static_cast<std::size_t>(pdu.errindex);
  return {static_cast<ErrorStatus>(pdu.errstat), index, VariablesOf(pdu)};
}

}  // namespace snmp
