#include "snmp/net_session.h"

#include "snmp/net_snmp_library.h"
#include "snmp/net_snmp_user.h"
#include "snmp/pdu_translation.h"

#include <net-snmp/library/lcd_time.h>
#include <net-snmp/library/snmp_secmod.h>

#include <netdb.h>
#include <poll.h>
#include <sys/select.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <utility>

namespace snmp {
namespace {

// How long whoever opens a session of version 3 waits for the engine there to say its name.
constexpr int kTriesForEngine = 4;
constexpr long kWaitForEngineUs = 500'000;
// Until then an answer is still one.
constexpr long kOldestAnswerUs = 30'000'000;

ArrivalKind KindOfReport(int type) {
  switch (type) {
    case SNMPERR_UNKNOWN_USER_NAME: return ArrivalKind::kUnknownUser;
    case SNMPERR_AUTHENTICATION_FAILURE:
    case SNMPERR_DECRYPTION_ERR: return ArrivalKind::kWrongPassword;
    case SNMPERR_UNSUPPORTED_SEC_LEVEL: return ArrivalKind::kLevelRefused;
    case SNMPERR_NOT_IN_TIME_WINDOW:
    case SNMPERR_UNKNOWN_ENG_ID: return ArrivalKind::kOtherEngine;
    default: return ArrivalKind::kOtherReport;
  }
}

// Asks who is there, which else the library would do with the first request, and in that one's time.
bool LearnEngine(void* handle, netsnmp_session& session) {
  const snmp_secmod_def* const usm = find_sec_mod(SNMP_SEC_MODEL_USM);
  auto* const sessions = static_cast<session_list*>(handle);
  if (usm == nullptr || usm->probe_engineid == nullptr || usm->post_probe_engineid == nullptr) return false;
  usm->probe_engineid(sessions, &session);
  return session.securityEngineIDLen != 0 && usm->post_probe_engineid(sessions, &session) == SNMPERR_SUCCESS;
}

class NetSession final : public Session {
 public:
  NetSession(std::string peer, Login login) : peer_(std::move(peer)), login_(std::move(login)) {}
  ~NetSession() override { Close(); }
  NetSession(const NetSession&) = delete;
  NetSession& operator=(const NetSession&) = delete;

  Clock::time_point Now() override { return Clock::now(); }
  std::optional<Ticket> Send(const Request& request) override;
  std::optional<Arrival> Receive(Clock::time_point until) override;
  bool Reopen() override;

 private:
  // A request on its way; the library holds its address.
  struct UnderWay {
    NetSession* session;
    Ticket ticket;
    bool isClockOld = false;
  };

  static int Called(int operation, netsnmp_session*, int, netsnmp_pdu* pdu, void* underWay);
  void TakeMessage(UnderWay& underWay, const netsnmp_pdu& pdu);
  bool Open();
  void Close();
  void Read(Clock::time_point until);

  const NetSnmpLibrary library_;
  std::string peer_;
  Login login_;
  void* handle_ = nullptr;  // null: to be opened before anything is sent
  Ticket lastTicket_ = 0;
  std::map<Ticket, UnderWay> underWay_;
  std::deque<Arrival> arrived_;
};

// Of version 3, true says that somebody is there.
bool NetSession::Open() {
  netsnmp_session session;
  snmp_sess_init(&session);
  session.peername = peer_.data();
  session.retries = kTriesForEngine - 1;
  session.timeout = kWaitForEngineUs;
  if (login_.user) {
    if (!PutUser(*login_.user, login_.user->HighestLevel(), session)) return false;
  } else {
    session.version = SNMP_VERSION_2c;
    session.community = reinterpret_cast<u_char*>(login_.community.data());
    session.community_len = login_.community.size();
  }
  handle_ = snmp_sess_open(&session);
  if (handle_ == nullptr) return false;
  netsnmp_session* const opened = snmp_sess_session(handle_);
  if (login_.user && !LearnEngine(handle_, *opened)) {
    Close();
    return false;
  }
  // Whoever asks knows when to ask again.
  opened->retries = 0;
  opened->timeout = kOldestAnswerUs;
  return true;
}

void NetSession::Close() {
  if (handle_ != nullptr) snmp_sess_close(std::exchange(handle_, nullptr));
  underWay_.clear();
  arrived_.clear();
}

bool NetSession::Reopen() {
  if (handle_ != nullptr) {
    // What the library knows of the engine's clock would be held against a clock that was put back.
    netsnmp_session* const opened = snmp_sess_session(handle_);
    free_enginetime(opened->securityEngineID, opened->securityEngineIDLen);
  }
  Close();
  return Open() && login_.user.has_value();
}

std::optional<Session::Ticket> NetSession::Send(const Request& request) {
  if (handle_ == nullptr && !Open()) return std::nullopt;
  OwnPdu pdu = PduOf(request);
  if (!pdu) return std::nullopt;
  const Ticket ticket = ++lastTicket_;
  UnderWay& underWay = underWay_[ticket] = {this, ticket};
  if (snmp_sess_async_send(handle_, pdu.get(), Called, &underWay) == 0) {
    underWay_.erase(ticket);
    return std::nullopt;
  }
  [[maybe_unused]] netsnmp_pdu* const gone = pdu.release();  // the library's now
  return ticket;
}

std::optional<Session::Arrival> NetSession::Receive(Clock::time_point until) {
  if (arrived_.empty()) Read(until);
  if (arrived_.empty()) return std::nullopt;
  Arrival arrival = std::move(arrived_.front());
  arrived_.pop_front();
  return arrival;
}

void NetSession::Read(Clock::time_point until) {
  for (;;) {
    const auto left = std::max(until - Now(), Clock::duration::zero());
    const netsnmp_transport* transport = handle_ == nullptr ? nullptr : snmp_sess_transport(handle_);
    pollfd wait{transport == nullptr ? -1 : transport->sock, POLLIN, 0};
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(left).count();
    if (poll(&wait, 1, static_cast<int>(milliseconds)) > 0) {
      fd_set readable;
      FD_ZERO(&readable);
      FD_SET(wait.fd, &readable);
      snmp_sess_read(handle_, &readable);
      if (!arrived_.empty()) return;
    }
    if (left == Clock::duration::zero()) break;
  }
  if (handle_ != nullptr) snmp_sess_timeout(handle_);
}

int NetSession::Called(int operation, netsnmp_session*, int, netsnmp_pdu* pdu, void* underWay) {
  UnderWay& request = *static_cast<UnderWay*>(underWay);
  NetSession& self = *request.session;
  switch (operation) {
    case NETSNMP_CALLBACK_OP_RECEIVED_MESSAGE:
      if (pdu != nullptr) self.TakeMessage(request, *pdu);
      // After a report the library may have more to say.
      if (pdu == nullptr || pdu->command == SNMP_MSG_REPORT) break;
      [[fallthrough]];
    case NETSNMP_CALLBACK_OP_TIMED_OUT:
    case NETSNMP_CALLBACK_OP_SEND_FAILED: self.underWay_.erase(request.ticket); break;
    case NETSNMP_CALLBACK_OP_SEC_ERROR:
      // The library has sent it again by the clock of the report, and that was not right either.
      if (request.isClockOld) self.arrived_.push_back({request.ticket, ArrivalKind::kOtherEngine, {}});
      break;
    default: break;
  }
  return 1;
}

// A report comes as a message as well, without an error.
void NetSession::TakeMessage(UnderWay& underWay, const netsnmp_pdu& pdu) {
  if (pdu.command == SNMP_MSG_RESPONSE) {
    arrived_.push_back({underWay.ticket, ArrivalKind::kResponse, ResponseOf(pdu)});
  } else if (pdu.command == SNMP_MSG_REPORT) {
    const int type = snmpv3_get_report_type(const_cast<netsnmp_pdu*>(&pdu));
    underWay.isClockOld = type == SNMPERR_NOT_IN_TIME_WINDOW;
    if (!underWay.isClockOld) arrived_.push_back({underWay.ticket, KindOfReport(type), {}});
  }
}

struct FreeAddresses {
  void operator()(addrinfo* found) const { freeaddrinfo(found); }
};

// Of a name with addresses of both kinds that of version 4: terminals have one.
std::string AddressOf(const Endpoint& endpoint, bool& isV6, std::string& problem) {
  addrinfo hints = {};
  hints.ai_socktype = SOCK_DGRAM;
  if (endpoint.isV6) hints.ai_family = AF_INET6;
  addrinfo* found = nullptr;
  const int error = getaddrinfo(endpoint.host.c_str(), nullptr, &hints, &found);
  if (error != 0) {
    problem = endpoint.host + ": " + gai_strerror(error);
    return {};
  }
  const std::unique_ptr<addrinfo, FreeAddresses> all(found);
  const addrinfo* chosen = found;
  while (chosen != nullptr && chosen->ai_family != AF_INET) chosen = chosen->ai_next;
  if (chosen == nullptr) chosen = found;
  isV6 = chosen->ai_family == AF_INET6;
  std::array<char, NI_MAXHOST> text = {};
  getnameinfo(chosen->ai_addr, chosen->ai_addrlen, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST);
  return text.data();
}

}  // namespace

std::string WhyNoSession() { return {}; }

OpenedSession OpenSession(const Endpoint& endpoint, Login login) {
  OpenedSession opened;
  Endpoint place = endpoint;
  opened.address = AddressOf(endpoint, place.isV6, opened.problem);
  if (!opened.problem.empty()) return opened;
  place.host = opened.address;
  opened.session = std::make_unique<NetSession>((place.isV6 ? "udp6:" : "udp:") + ToText(place), std::move(login));
  return opened;
}

}  // namespace snmp
