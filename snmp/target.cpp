#include "snmp/target.h"

#include <algorithm>

namespace snmp {
namespace {

constexpr std::string_view kScheme = "snmp://";
constexpr std::string_view kShape =
    "a device is snmp://[USER@]HOST[:PORT], such as snmp://10.0.0.5 or snmp://admin@[fd00::5]:1161";
constexpr std::string_view kNoPassword =
    "a device is named without a password: that comes from a file or the environment, or is asked for";

bool IsUser(std::string_view text) {
  const auto canStand = [](char c) { return c > ' ' && c < '\x7f' && c != '/' && c != '@'; };
  return !text.empty() && std::all_of(text.begin(), text.end(), canStand);
}

std::optional<Endpoint> EndpointIn(std::string_view text) {
  if (auto whole = ParseEndpoint(text)) return whole->port == 0 ? std::nullopt : whole;
  return ParseEndpoint(std::string(text) + ":" + std::to_string(kUsualPort));
}

}  // namespace

std::optional<Target> ParseTarget(std::string_view text, std::string& problem) {
  problem = kShape;
  if (!text.starts_with(kScheme)) return std::nullopt;
  text.remove_prefix(kScheme.size());
  Target target;
  if (const std::size_t at = text.rfind('@'); at != std::string_view::npos) {
    target.user = text.substr(0, at);
    text.remove_prefix(at + 1);
    if (target.user.find(':') != std::string::npos) {
      problem = kNoPassword;
      return std::nullopt;
    }
    if (!IsUser(target.user)) return std::nullopt;
  }
  const auto endpoint = EndpointIn(text);
  if (!endpoint) return std::nullopt;
  target.endpoint = *endpoint;
  problem.clear();
  return target;
}

std::string ToText(const Target& target) {
  std::string where = ToText(target.endpoint);
  const std::string usual = ":" + std::to_string(kUsualPort);
  if (target.endpoint.port == kUsualPort) where.resize(where.size() - usual.size());
  return std::string(kScheme) + (target.user.empty() ? "" : target.user + "@") + where;
}

}  // namespace snmp
