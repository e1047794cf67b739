#include "snmp/responder.h"

#include "snmp/net_snmp_library.h"
#include "snmp/net_snmp_user.h"
#include "snmp/pdu_translation.h"
#include "snmp/recent_sets.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>
#include <vector>

namespace snmp {
namespace {

using Clock = std::chrono::steady_clock;

// Requests whose time has not come; more than these are lost, as datagrams may be.
constexpr std::size_t kMaxHeld = 256;

class UdpResponder : public Responder {
 public:
  UdpResponder(Credentials credentials, const Engine* self, RequestHandler& handler)
      : library_(self), credentials_(std::move(credentials)), handler_(handler) {}
  ~UdpResponder() override {
    if (session_ != nullptr) snmp_sess_close(session_);
    if (stopped_ >= 0) close(stopped_);
  }
  UdpResponder(const UdpResponder&) = delete;
  UdpResponder& operator=(const UdpResponder&) = delete;

  // Empty, or what is wrong.
  std::string Open(const Endpoint& endpoint);
  Endpoint Where() const override { return where_; }
  void Serve(int stop) override;
  void Stop() override { eventfd_write(stopped_, 1); }

 private:
  struct Held {
    Clock::time_point due;
    OwnPdu request;
  };

  static int Received(int operation, netsnmp_session*, int, netsnmp_pdu* pdu, void* responder);
  void Take(const netsnmp_pdu& pdu);
  void Hold(OwnPdu request, std::chrono::milliseconds delay);
  void AnswerThoseDue();
  void Answer(const Request& request, Rights rights, const netsnmp_pdu& pdu);
  void Reply(const Response& response, OwnPdu copy);
  bool Send(OwnPdu& response);
  std::optional<Rights> RightsOf(const netsnmp_pdu& pdu) const;
  std::optional<Rights> RightsOfUser(const netsnmp_pdu& pdu) const;
  int MillisecondsToNextDue() const;

  const NetSnmpLibrary library_;
  const Credentials credentials_;
  RequestHandler& handler_;
  void* session_ = nullptr;
  int socket_ = -1;
  const int stopped_ = eventfd(0, EFD_CLOEXEC);
  Endpoint where_;
  std::vector<Held> held_;
  RecentSets recentSets_;
};

std::uint16_t PortOf(int socket) {
  sockaddr_storage address = {};
  socklen_t size = sizeof address;
  if (getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) return 0;
  const in_port_t port = address.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6&>(address).sin6_port
                                                       : reinterpret_cast<const sockaddr_in&>(address).sin_port;
  return ntohs(port);
}

std::string UdpResponder::Open(const Endpoint& endpoint) {
  for (const User& user : credentials_.users) {
    if (!AddOwnUser(user)) return "net-snmp's library lacks the protocols of one of the users";
  }
  errno = 0;
  const std::string address = (endpoint.isV6 ? "udp6:" : "udp:") + ToText(endpoint);
  netsnmp_transport* transport = netsnmp_transport_open_server("kelagent", address.c_str());
  const std::error_code reason(errno, std::generic_category());
  if (transport == nullptr) return "cannot listen on " + ToText(endpoint) + (reason ? ": " + reason.message() : "");
  socket_ = transport->sock;
  netsnmp_session session;
  snmp_sess_init(&session);
  session.version = SNMP_DEFAULT_VERSION;
  session.callback = Received;
  session.callback_magic = this;
  session.isAuthoritative = SNMP_SESS_AUTHORITATIVE;
  session_ = snmp_sess_add(&session, transport, nullptr, nullptr);  // has the transport now, whatever comes
  if (session_ == nullptr) return "cannot listen on " + ToText(endpoint);
  where_ = endpoint;
  where_.port = PortOf(socket_);
  return {};
}

void UdpResponder::Serve(int stop) {
  for (;;) {
    pollfd waits[] = {{socket_, POLLIN, 0}, {stop, POLLIN, 0}, {stopped_, POLLIN, 0}};
    if (poll(waits, std::size(waits), MillisecondsToNextDue()) < 0 && errno != EINTR) return;
    if (waits[1].revents != 0 || waits[2].revents != 0) return;
    AnswerThoseDue();
    if (waits[0].revents == 0) continue;
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(socket_, &readable);
    snmp_sess_read(session_, &readable);
  }
}

int UdpResponder::Received(int operation, netsnmp_session*, int, netsnmp_pdu* pdu, void* responder) {
  if (operation == NETSNMP_CALLBACK_OP_RECEIVED_MESSAGE && pdu != nullptr) {
    static_cast<UdpResponder*>(responder)->Take(*pdu);
  }
  return 1;
}

std::optional<Rights> UdpResponder::RightsOf(const netsnmp_pdu& pdu) const {
  if (pdu.version == SNMP_VERSION_3) return RightsOfUser(pdu);
  if (pdu.version != SNMP_VERSION_2c || pdu.community_len == 0) return std::nullopt;
  const std::string_view word(reinterpret_cast<const char*>(pdu.community), pdu.community_len);
  if (word == credentials_.writeCommunity) return Rights{.write = true, .secrets = false};
  if (word == credentials_.community) return Rights{};
  return std::nullopt;
}

// The library has seen that it is this user, at the message's level.
std::optional<Rights> UdpResponder::RightsOfUser(const netsnmp_pdu& pdu) const {
  if (pdu.securityModel != SNMP_SEC_MODEL_USM || pdu.securityName == nullptr) return std::nullopt;
  const User* user = credentials_.Find({pdu.securityName, pdu.securityNameLen});
  if (user == nullptr || pdu.securityLevel < static_cast<int>(user->LeastLevel())) return std::nullopt;
  return Rights{.write = user->mayWrite, .secrets = pdu.securityLevel == SNMP_SEC_LEVEL_AUTHPRIV};
}

std::string_view AddressOf(const netsnmp_pdu& pdu) {
  return {static_cast<const char*>(pdu.transport_data), static_cast<std::size_t>(pdu.transport_data_length)};
}

// What one may do another may not, from the same address.
RecentSets::Origin OriginOf(const netsnmp_pdu& pdu) {
  std::string sender(AddressOf(pdu));
  sender.append(1, static_cast<char>(pdu.version)).append(1, static_cast<char>(pdu.securityLevel));
  if (pdu.version == SNMP_VERSION_3) {
    sender.append(pdu.securityName, pdu.securityNameLen);
  } else {
    sender.append(reinterpret_cast<const char*>(pdu.community), pdu.community_len);
  }
  return {std::move(sender), pdu.reqid};
}

// The library frees the request itself. Null when there is no memory.
OwnPdu Clone(const netsnmp_pdu& pdu) { return OwnPdu(snmp_clone_pdu(const_cast<netsnmp_pdu*>(&pdu))); }

// A variable is large, and most answers have others.
OwnPdu CloneWithoutVariables(const netsnmp_pdu& pdu) {
  netsnmp_pdu bare = pdu;
  bare.variables = nullptr;
  return Clone(bare);
}

void UdpResponder::Take(const netsnmp_pdu& pdu) {
  const auto rights = RightsOf(pdu);
  const auto request = RequestOf(pdu);
  if (!request || (!rights && pdu.version != SNMP_VERSION_3)) return;
  if (!rights) return Reply({ErrorStatus::kAuthorizationError, 0, {}}, Clone(pdu));
  if (request->command == Command::kSet) {
    const Response* done = recentSets_.Find(OriginOf(pdu), request->variables, Clock::now());
    if (done != nullptr) return Reply(*done, Clone(pdu));
  }
  const auto delay = handler_.DelayOf(*request, *rights);
  if (delay.count() > 0) {
    Hold(Clone(pdu), delay);
  } else {
    Answer(*request, *rights, pdu);
  }
}

bool AreTheSame(const netsnmp_pdu& a, const netsnmp_pdu& b) {
  return a.reqid == b.reqid && a.command == b.command && AddressOf(a) == AddressOf(b);
}

// A manager that has no patience asks again: one answer serves both, that to what it asked last.
void UdpResponder::Hold(OwnPdu request, std::chrono::milliseconds delay) {
  if (!request) return;
  const auto held = std::find_if(held_.begin(), held_.end(),
                                 [&request](const Held& one) { return AreTheSame(*one.request, *request); });
  if (held != held_.end()) {
    held->request = std::move(request);
  } else if (held_.size() < kMaxHeld) {
    held_.push_back({Clock::now() + delay, std::move(request)});
  }
}

void UdpResponder::AnswerThoseDue() {
  const auto now = Clock::now();
  const auto firstDue = std::stable_partition(held_.begin(), held_.end(), [now](const Held& h) { return h.due > now; });
  std::vector<Held> due(std::make_move_iterator(firstDue), std::make_move_iterator(held_.end()));
  held_.erase(firstDue, held_.end());
  for (Held& held : due) {
    const auto rights = RightsOf(*held.request);
    const auto request = RequestOf(*held.request);
    if (rights && request) Answer(*request, *rights, *held.request);
  }
}

void UdpResponder::Answer(const Request& request, Rights rights, const netsnmp_pdu& pdu) {
  const Response response = handler_.Answer(request, rights);
  if (request.command == Command::kSet) recentSets_.Add(OriginOf(pdu), request.variables, response, Clock::now());
  const bool givesOwn = request.command != Command::kSet && response.status == ErrorStatus::kNoError;
  Reply(response, givesOwn ? CloneWithoutVariables(pdu) : Clone(pdu));
}

void UdpResponder::Reply(const Response& response, OwnPdu copy) {
  if (!copy) return;
  MakeResponse(response, *copy);
  if (Send(copy)) return;
  MakeResponse({ErrorStatus::kTooBig, 0, {}}, *copy);
  Send(copy);
}

// The library frees what it has sent.
bool UdpResponder::Send(OwnPdu& response) {
  const bool sent = snmp_sess_send(session_, response.get()) != 0;
  if (sent) [[maybe_unused]]
    netsnmp_pdu* const gone = response.release();
  return sent;
}

int UdpResponder::MillisecondsToNextDue() const {
  if (held_.empty()) return -1;
  const auto first =
      std::min_element(held_.begin(), held_.end(), [](const Held& a, const Held& b) { return a.due < b.due; });
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(first->due - Clock::now());
  return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
}

}  // namespace

std::unique_ptr<Responder> OpenResponder(const Endpoint& endpoint, Credentials credentials,
                                         const std::optional<Engine>& self, RequestHandler& handler,
                                         std::string& problem) {
  auto responder = std::make_unique<UdpResponder>(std::move(credentials), self ? &*self : nullptr, handler);
  problem = responder->Open(endpoint);
  if (!problem.empty()) return nullptr;
  return responder;
}

}  // namespace snmp
