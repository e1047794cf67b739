#include "snmp/message.h"

namespace snmp {
namespace {

// With its tag and length; the longest form of a length that is written for what a datagram can hold.
std::size_t SizeWithHeader(std::size_t content) { return content + (content < 128 ? 2 : 4); }

// Seven bits an octet.
std::size_t SizeOfIdentifier(std::uint32_t number) {
  std::size_t size = 1;
  while ((number >>= 7) != 0) ++size;
  return size;
}

// Eight bits an octet, the first of them the sign.
std::size_t SizeOfNumber(std::int64_t number) {
  std::size_t size = 1;
  for (; number > 127 || number < -128; number >>= 8) ++size;
  return size;
}

std::size_t SizeOf(const Value& value) {
  switch (value.type) {
    case ValueType::kInteger:
    case ValueType::kCounter32:
    case ValueType::kGauge32:
    case ValueType::kTimeTicks: return SizeOfNumber(value.number);
    default: return value.bytes.size();
  }
}

}  // namespace

std::size_t SizeInMessage(const Oid& oid, const Value& value) {
  std::size_t name = 0;
  for (const std::uint32_t number : oid) name += SizeOfIdentifier(number);
  return SizeWithHeader(SizeWithHeader(name) + SizeWithHeader(SizeOf(value)));
}

}  // namespace snmp
