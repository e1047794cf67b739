#include "tests/snmp/udp_manager.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <string_view>
#include <utility>

namespace tests {
namespace {

constexpr char kGet = '\xA0';
constexpr char kSet = '\xA3';
constexpr char kInteger = '\x02';
constexpr char kOctets = '\x04';
constexpr char kOid = '\x06';
constexpr char kSequence = '\x30';
constexpr int kTries = 60;
constexpr int kPatienceMs = 1000;

// Short ones only: their length is one octet.
std::string Tagged(char tag, const std::string& content) {
  return std::string{tag, static_cast<char>(content.size())} + content;
}

std::string Number(std::int16_t number) {
  return Tagged(kInteger, {static_cast<char>(number >> 8), static_cast<char>(number & 0xFF)});
}

// The contents of what has that tag at the beginning, which is taken away.
std::string_view Take(char tag, std::string_view& bytes) {
  if (bytes.size() < 2 || bytes[0] != tag || bytes[1] < 0 || static_cast<std::size_t>(bytes[1]) > bytes.size() - 2) {
    return bytes = {};
  }
  const std::string_view content = bytes.substr(2, static_cast<std::size_t>(bytes[1]));
  bytes.remove_prefix(2 + content.size());
  return content;
}

std::int64_t NumberOf(std::string_view octets) {
  std::int64_t number = !octets.empty() && octets.front() < 0 ? -1 : 0;
  for (const char octet : octets) number = number * 256 + static_cast<unsigned char>(octet);
  return number;
}

sockaddr_in At(std::uint16_t port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

}  // namespace

UdpManager::UdpManager(std::uint16_t port, std::string community)
    : community_(std::move(community)), socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
  const sockaddr_in address = At(port);
  [[maybe_unused]] const int connected = connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

UdpManager::~UdpManager() { close(socket_); }

std::optional<std::int64_t> UdpManager::Get(std::uint8_t number) {
  const auto variable = Ask(kGet, number, std::string{'\x05', '\x00'});
  if (!variable || variable->front() != kInteger) return std::nullopt;
  std::string_view bytes = *variable;
  return NumberOf(Take(kInteger, bytes));
}

bool UdpManager::Set(std::uint8_t number, std::int16_t value) { return Ask(kSet, number, Number(value)).has_value(); }

// The value that comes back, with its tag; nothing: an error, or no answer.
std::optional<std::string> UdpManager::Ask(char command, std::uint8_t number, const std::string& value) {
  request_ = static_cast<std::uint8_t>((request_ + 1) % 100);
  const std::string oid = Tagged(kOid, {'\x2B', static_cast<char>(number)});
  const std::string pdu = Number(request_) + Number(0) + Number(0) + Tagged(kSequence, Tagged(kSequence, oid + value));
  const std::string message = Tagged(kSequence, Number(1) + Tagged(kOctets, community_) + Tagged(command, pdu));
  for (int i = 0; i < kTries; ++i) {
    send(socket_, message.data(), message.size(), 0);
    pollfd wait = {socket_, POLLIN, 0};
    if (poll(&wait, 1, kPatienceMs) <= 0) continue;
    std::array<char, 2048> buffer = {};
    const ssize_t size = recv(socket_, buffer.data(), buffer.size(), 0);
    std::string_view bytes(buffer.data(), size < 0 ? 0 : static_cast<std::size_t>(size));
    std::string_view answer = Take(kSequence, bytes);
    Take(kInteger, answer);
    Take(kOctets, answer);
    std::string_view fields = Take('\xA2', answer);
    if (NumberOf(Take(kInteger, fields)) != request_) continue;  // that to an earlier try
    if (NumberOf(Take(kInteger, fields)) != 0) return std::nullopt;
    Take(kInteger, fields);
    std::string_view variables = Take(kSequence, fields);
    std::string_view variable = Take(kSequence, variables);
    Take(kOid, variable);
    if (variable.empty()) return std::nullopt;
    return std::string(variable);
  }
  return std::nullopt;
}

std::uint16_t FreePort() {
  const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = At(0);
  socklen_t size = sizeof address;
  const bool bound = bind(descriptor, reinterpret_cast<const sockaddr*>(&address), size) == 0 &&
                     getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) == 0;
  close(descriptor);
  return bound ? ntohs(address.sin_port) : std::uint16_t{0};
}

}  // namespace tests
