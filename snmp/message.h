// What requests and answers hold, whoever writes and reads their octets (RFC 3416).
#pragma once

#include "snmp/oid.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace snmp {

// The tags of a variable's value. A request may hold any other as well.
enum class ValueType : std::uint8_t {
  kInteger = 0x02,
  kOctets = 0x04,
  kNull = 0x05,
  kObjectId = 0x06,
  kIpAddress = 0x40,
  kCounter32 = 0x41,
  kGauge32 = 0x42,
  kTimeTicks = 0x43,
  kOpaque = 0x44,
  kCounter64 = 0x46,
  kNoSuchObject = 0x80,
  kNoSuchInstance = 0x81,
  kEndOfMibView = 0x82,
};

struct Value {
  ValueType type = ValueType::kNull;
  std::int64_t number = 0;  // of an integer, counter, gauge, time; the bits of a counter of 64
  std::string bytes;        // of octets, an address (four of them), an opaque value; an identifier as it is printed
  bool operator==(const Value&) const = default;
};

struct Variable {
  Oid oid;
  Value value;
  bool operator==(const Variable&) const = default;
};

// What a datagram has for variables, beside the headers of a message, which are longest with privacy.
inline constexpr std::size_t kMostRoom = 65'000;

enum class Command { kGet, kGetNext, kGetBulk, kSet };

struct Request {
  Command command = Command::kGet;
  std::int64_t nonRepeaters = 0;    // of kGetBulk
  std::int64_t maxRepetitions = 0;  // of kGetBulk
  std::vector<Variable> variables;
  std::size_t room = kMostRoom;  // octets that the variables of the answer may take
};

// The error-status of a response. A device may answer any other number as well.
enum class ErrorStatus : int {
  kNoError = 0,
  kTooBig = 1,
  kBadValue = 3,
  kReadOnly = 4,
  kGenErr = 5,
  kNoAccess = 6,
  kWrongType = 7,
  kWrongLength = 8,
  kWrongEncoding = 9,
  kWrongValue = 10,
  kNoCreation = 11,
  kInconsistentValue = 12,
  kCommitFailed = 14,
  kAuthorizationError = 16,
  kNotWritable = 17,
};

struct Response {
  ErrorStatus status = ErrorStatus::kNoError;
  std::size_t index = 0;            // of the variable that failed, from 1; 0: none of them
  std::vector<Variable> variables;  // what was read; nothing after an error or a Set, which give the request's back
  bool operator==(const Response&) const = default;
};

// An upper bound for the octets that a variable takes in a message.
std::size_t SizeInMessage(const Oid& oid, const Value& value);
inline std::size_t SizeInMessage(const Variable& variable) { return SizeInMessage(variable.oid, variable.value); }

}  // namespace snmp
