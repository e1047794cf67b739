#include "snmp/endpoint.h"

#include "snmp/decimal.h"

#include <limits>

namespace snmp {
namespace {

constexpr std::string_view kDigitsAndLetters = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

bool HasOnly(std::string_view text, const std::string& characters) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

}  // namespace

std::optional<Endpoint> ParseEndpoint(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto port = ParseDecimal(text.substr(colon + 1));
  if (!port || *port < 0 || *port > std::numeric_limits<std::uint16_t>::max()) return std::nullopt;
  std::string_view host = text.substr(0, colon);
  const bool isV6 = host.size() > 2 && host.front() == '[' && host.back() == ']';
  if (isV6) host = host.substr(1, host.size() - 2);
  if (!HasOnly(host, std::string(kDigitsAndLetters) + (isV6 ? ":.%" : ".-"))) return std::nullopt;
  return Endpoint{std::string(host), static_cast<std::uint16_t>(*port), isV6};
}

std::string ToText(const Endpoint& endpoint) {
  const std::string host = endpoint.isV6 ? "[" + endpoint.host + "]" : endpoint.host;
  return host + ":" + std::to_string(endpoint.port);
}

}  // namespace snmp
