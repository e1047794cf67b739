#include "simulator/network_device.h"

#include "base/string_table.h"
#include "base/utf8.h"
#include "rules/wireless_couplings.h"
#include "simulator/hidden_prompt.h"
#include "snmp/credentials.h"
#include "values/device_access.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace simulator {
namespace {

constexpr WideStringView kConfigureProfile = u"cfg|80211PM|ConfigureProfile";

// What a device does something by each time, instead of keeping a value.
bool Acts(WideStringView oid, WideStringView type) {
  return base::EqualsIgnoringCase(type, LoadText(TextId::kReaderCmd)) || oid == rules::wireless::kNetworkSettings ||
         oid == kConfigureProfile || values::IsSpecialOid(oid);
}

const char* Variable(const char* name) { return std::getenv(name); }

std::string AskFor(const std::string& what, std::string& answer) {
  auto typed = AskHidden(what + " (is not shown): ");
  if (!typed) return "there is nobody to ask for the " + what + "; name a file by --credentials";
  answer = std::move(*typed);
  return {};
}

// Empty, or why nobody can be asked as.
std::string CompleteUser(const snmp::Credentials& known, const std::string& name, snmp::Login& login) {
  if (const snmp::User* user = known.Find(name)) {
    login.user = *user;
    return {};
  }
  snmp::User& user = login.user.emplace();
  user.name = name;
  std::string problem = AskFor("authentication password of " + name, user.authPassword);
  if (problem.empty()) problem = AskFor("privacy password of " + name + ", nothing for none", user.privPassword);
  return problem.empty() ? ProblemOf(user) : problem;
}

std::string FindLogin(const Options& options, const snmp::Target& target, snmp::Login& login) {
  snmp::Credentials known;
  std::string problem = snmp::ReadCredentials(options.credentials, Variable, known, target.user);
  if (!problem.empty()) return problem;
  if (!target.user.empty()) return CompleteUser(known, target.user, login);
  login.community = known.writeCommunity.empty() ? known.community : known.writeCommunity;
  if (login.community.empty()) problem = AskFor("community", login.community);
  return problem.empty() && login.community.empty() ? "a device is not asked without a community" : problem;
}

std::string Hexadecimal(platform::ResultCode code) {
  char text[sizeof "0x80004005"] = {};
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(code));
  return text;
}

}  // namespace

NetworkDevice::NetworkDevice(const Options& options, const snmp::Target& target, snmp::OpenedSession opened)
    : name_(ToText(target)),
      place_(ToText(target.endpoint)),
      address_(std::move(opened.address)),
      restartOid_(base::FromUtf8(options.restartOid)),
      truthValues_(options.truthValues),
      session_(std::move(opened.session)),
      inquiry_(*session_) {}

std::unique_ptr<NetworkDevice> NetworkDevice::Connect(const Options& options, std::string& problem) {
  const auto target = snmp::ParseTarget(options.device, problem);
  if (target && !options.restartOid.empty() && !snmp::OidOf(base::FromUtf8(options.restartOid))) {
    problem = "--restart-oid takes an OID";
  }
  if (problem.empty()) problem = snmp::WhyNoSession();
  snmp::Login login;
  if (problem.empty()) problem = FindLogin(options, *target, login);
  if (!problem.empty()) return nullptr;
  snmp::OpenedSession opened = snmp::OpenSession(target->endpoint, login);
  problem = std::move(opened.problem);
  if (!problem.empty()) return nullptr;
  auto device = std::unique_ptr<NetworkDevice>(new NetworkDevice(options, *target, std::move(opened)));
  problem = device->Probe(login.user.has_value());
  return problem.empty() ? std::move(device) : nullptr;
}

std::string NetworkDevice::Probe(bool isUser) {
  const auto start = session_->Now();
  const platform::ResultCode code = inquiry_.Get({{snmp::kUpTime}}).front().code;
  if (code == snmp::kLogonFailure) {
    switch (inquiry_.Refusal()) {
      case snmp::ArrivalKind::kUnknownUser: return name_ + " answers that it does not know this user";
      case snmp::ArrivalKind::kWrongPassword: return name_ + " answers that the user's password is wrong";
      default: return name_ + " answers that the user may not ask with these passwords";
    }
  }
  if (code != snmp::kTimedOut) return {};
  char seconds[16] = {};
  std::snprintf(seconds, sizeof seconds, "%.1f", std::chrono::duration<double>(session_->Now() - start).count());
  const std::string asked = isUser ? "version 3" : "version 2c";
  const std::string alike = isUser ? "a wrong privacy password" : "a wrong community";
  return "no answer from " + name_ + " (" + address_ + "), asked several times in " + seconds + " s by SNMP " + asked +
         "; " + alike + " looks like that, too";
}

std::unique_ptr<platform::ISnmpConfig> NetworkDevice::Device() {
  snmp::DeviceHabits habits;
  habits.truthValues = truthValues_;
  habits.acts = [this](WideStringView oid, WideStringView type) { return oid == restartOid_ || Acts(oid, type); };
  habits.inDoubt = [this](WideStringView oid) {
    if (!tellDoubt_) return;
    tellDoubt_("The terminal at " + address_ + " did not answer to a command, the Set of " + base::ToUtf8(oid) +
               ": nobody knows whether it was carried out. Look there before you choose it again.");
  };
  return MakeSnmpDevice(inquiry_, std::move(habits));
}

std::string NetworkDevice::Restart() {
  if (restartOid_.empty())
    return "Restart the terminal at " + address_ + " by hand: it works with the new settings then.";
  const platform::ResultCode code = Device()->Set(restartOid_, WideString(LoadText(TextId::kInteger)), u"1");
  if (code >= 0) return "The terminal at " + address_ + " is told to restart.";
  return "The terminal at " + address_ + " did not take the order to restart (" + Hexadecimal(code) +
         "): restart it by hand.";
}

}  // namespace simulator
