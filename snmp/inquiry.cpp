#include "snmp/inquiry.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace snmp {
namespace {

using std::chrono::milliseconds;
using Clock = Session::Clock;

constexpr std::size_t kWindow = 8;
// Of a datagram's 1,400 octets; the rest is for the headers of a message, which are longest with privacy.
constexpr std::size_t kRoom = 1'250;
constexpr int kTries = 4;
constexpr auto kShortestWait = milliseconds(200);
constexpr auto kLongestWait = milliseconds(1000);
constexpr auto kLeftAlone = milliseconds(5000);
constexpr auto kPatienceForSet = milliseconds(2000);
// What acts may take its time, and cannot be asked for again.
constexpr auto kPatienceForAct = milliseconds(5000);

bool RefusesAll(ArrivalKind kind) {
  return kind == ArrivalKind::kUnknownUser || kind == ArrivalKind::kWrongPassword || kind == ArrivalKind::kLevelRefused;
}

}  // namespace

// One Get of many values.
class Inquiry::Reader {
 public:
  Reader(Inquiry& inquiry, const std::vector<Wanted>& wanted)
      : inquiry_(inquiry), session_(inquiry.session_), wanted_(wanted), readings_(wanted.size()) {}

  std::vector<Reading> Run();

 private:
  using Places = std::vector<std::size_t>;  // in wanted_

  struct Asked {
    Places places;
    std::vector<Session::Ticket> tickets;  // of each time that it was sent
    Clock::time_point firstSent;
    Clock::time_point nextTry;
    Clock::duration wait{0};
  };

  void Divide();
  void AskMore();
  bool Send(Asked& asked);
  void Take(Session::Arrival arrival);
  void TakeResponse(const Places& places, Response response);
  void TakeError(Places places, const Response& response);
  void AskInHalves(const Places& places);
  void HearNothing(Asked& asked);
  void BeginAnew();
  void LeaveAlone();
  void Fail(const Places& places, platform::ResultCode code);
  void FailAll(platform::ResultCode code);

  Inquiry& inquiry_;
  Session& session_;
  const std::vector<Wanted>& wanted_;
  std::vector<Reading> readings_;
  std::deque<Places> waiting_;
  std::vector<Asked> open_;
  Clock::time_point lastHeard_ = Clock::time_point::min();
  bool isReopened_ = false;
};

std::vector<Reading> Inquiry::Reader::Run() {
  Divide();
  for (;;) {
    AskMore();
    if (open_.empty()) return std::move(readings_);
    const auto next = std::min_element(open_.begin(), open_.end(),
                                       [](const Asked& a, const Asked& b) { return a.nextTry < b.nextTry; });
    if (auto arrival = session_.Receive(next->nextTry)) {
      Take(std::move(*arrival));
    } else {
      HearNothing(*next);
    }
  }
}

// Each as full as a datagram can be.
void Inquiry::Reader::Divide() {
  std::size_t bytes = kRoom;
  for (std::size_t place = 0; place < wanted_.size(); ++place) {
    const std::size_t size = SizeInMessage(wanted_[place].oid, {}) + wanted_[place].valueSize;
    if (bytes + size > kRoom) {
      waiting_.emplace_back();
      bytes = 0;
    }
    waiting_.back().push_back(place);
    bytes += size;
  }
}

void Inquiry::Reader::AskMore() {
  while (open_.size() < kWindow && !waiting_.empty()) {
    Asked& asked = open_.emplace_back();
    asked.places = std::move(waiting_.front());
    waiting_.pop_front();
    asked.firstSent = session_.Now();
    asked.wait = inquiry_.UsualWait();
    if (!Send(asked)) LeaveAlone();
  }
}

bool Inquiry::Reader::Send(Asked& asked) {
  Request request;
  request.variables.reserve(asked.places.size());
  for (const std::size_t place : asked.places) request.variables.push_back({wanted_[place].oid, {}});
  const auto ticket = session_.Send(request);
  if (!ticket) return false;
  asked.tickets.push_back(*ticket);
  // After the last an answer to any of them may still be on its way.
  const bool isLast = asked.tickets.size() >= kTries;
  asked.nextTry = session_.Now() + (isLast ? std::max<Clock::duration>(asked.wait, kLongestWait) : asked.wait);
  asked.wait = asked.wait * 3 / 2;
  return true;
}

void Inquiry::Reader::Take(Session::Arrival arrival) {
  inquiry_.Heard(arrival);
  lastHeard_ = session_.Now();
  const auto asked = std::find_if(open_.begin(), open_.end(), [&arrival](const Asked& candidate) {
    return std::count(candidate.tickets.begin(), candidate.tickets.end(), arrival.ticket) > 0;
  });
  if (asked == open_.end()) return;  // to what has been answered already
  if (RefusesAll(arrival.kind)) return FailAll(kLogonFailure);
  if (arrival.kind == ArrivalKind::kOtherEngine) return BeginAnew();
  // Of what was sent more than once nobody knows which was answered.
  if (asked->tickets.size() == 1) {
    inquiry_.roundTrip_ = (inquiry_.roundTrip_ * 7 + (lastHeard_ - asked->firstSent)) / 8;
  }
  const Places places = std::move(asked->places);
  open_.erase(asked);
  if (arrival.kind != ArrivalKind::kResponse) return Fail(places, platform::kFailed);
  TakeResponse(places, std::move(arrival.response));
}

void Inquiry::Reader::TakeResponse(const Places& places, Response response) {
  if (response.status != ErrorStatus::kNoError) return TakeError(places, response);
  const bool isWhatWasAsked =
      std::equal(places.begin(), places.end(), response.variables.begin(), response.variables.end(),
                 [this](std::size_t place, const Variable& variable) { return wanted_[place].oid == variable.oid; });
  if (!isWhatWasAsked) return AskInHalves(places);
  for (std::size_t i = 0; i < places.size(); ++i) {
    readings_[places[i]] = {platform::kOk, std::move(response.variables[i].value)};
  }
}

// An error is of one variable, and none of the others has been answered.
void Inquiry::Reader::TakeError(Places places, const Response& response) {
  const bool namesOne = response.index >= 1 && response.index <= places.size();
  const bool isOfAll = places.size() == 1 || (!namesOne && response.status == ErrorStatus::kAuthorizationError);
  if (isOfAll) return Fail(places, ResultOfError(response.status));
  if (!namesOne || response.status == ErrorStatus::kTooBig) return AskInHalves(places);
  const auto failed = places.begin() + static_cast<Places::difference_type>(response.index - 1);
  Fail({*failed}, ResultOfError(response.status));
  places.erase(failed);
  waiting_.push_front(std::move(places));
}

void Inquiry::Reader::AskInHalves(const Places& places) {
  if (places.size() == 1) return Fail(places, platform::kFailed);
  const auto middle = places.begin() + static_cast<Places::difference_type>(places.size() / 2);
  waiting_.emplace_front(middle, places.end());
  waiting_.emplace_front(places.begin(), middle);
}

void Inquiry::Reader::HearNothing(Asked& asked) {
  if (asked.tickets.size() < kTries) return Send(asked) ? void() : LeaveAlone();
  if (lastHeard_ < asked.firstSent) return BeginAnew();
  // The device is there, and only too slow with one of these.
  Fail(asked.places, kTimedOut);
  open_.erase(open_.begin() + (&asked - open_.data()));
}

void Inquiry::Reader::BeginAnew() {
  if (std::exchange(isReopened_, true) || !session_.Reopen()) return LeaveAlone();
  for (Asked& asked : open_) waiting_.push_front(std::move(asked.places));
  open_.clear();
}

void Inquiry::Reader::LeaveAlone() {
  inquiry_.LeaveAlone();
  FailAll(kTimedOut);
}

void Inquiry::Reader::Fail(const Places& places, platform::ResultCode code) {
  for (const std::size_t place : places) readings_[place] = {code, {}};
}

void Inquiry::Reader::FailAll(platform::ResultCode code) {
  for (const Asked& asked : open_) Fail(asked.places, code);
  for (const Places& places : waiting_) Fail(places, code);
  open_.clear();
  waiting_.clear();
}

std::vector<Reading> Inquiry::Get(const std::vector<Wanted>& wanted) {
  if (IsLeftAlone()) return std::vector<Reading>(wanted.size());
  return Reader(*this, wanted).Run();
}

platform::ResultCode Inquiry::Ask(const Request& request, Response& response) {
  if (IsLeftAlone()) return kTimedOut;
  for (bool isReopened = false;; isReopened = true) {
    auto arrival = AskInSession(request);
    if (arrival && RefusesAll(arrival->kind)) return kLogonFailure;
    if (arrival && arrival->kind != ArrivalKind::kOtherEngine) {
      response = std::move(arrival->response);
      return arrival->kind == ArrivalKind::kResponse ? platform::kOk : platform::kFailed;
    }
    if (isReopened || !session_.Reopen()) break;
  }
  LeaveAlone();
  return kTimedOut;
}

std::optional<Session::Arrival> Inquiry::AskInSession(const Request& request) {
  std::vector<Session::Ticket> tickets;
  Clock::duration wait = UsualWait();
  while (tickets.size() < kTries) {
    const auto ticket = session_.Send(request);
    if (!ticket) break;
    tickets.push_back(*ticket);
    const bool isLast = tickets.size() == kTries;
    const auto until = session_.Now() + (isLast ? std::max<Clock::duration>(wait, kLongestWait) : wait);
    while (auto arrival = session_.Receive(until)) {
      Heard(*arrival);
      if (std::count(tickets.begin(), tickets.end(), arrival->ticket) > 0) return arrival;
    }
    wait = wait * 3 / 2;
  }
  return std::nullopt;
}

Session::Clock::duration Inquiry::UsualWait() const {
  return std::clamp<Clock::duration>(roundTrip_ * 4, kShortestWait, kLongestWait);
}

platform::ResultCode Inquiry::Set(const Variable& variable, Again again) {
  isInDoubt_ = false;
  if (again == Again::kNever) return Act(variable);
  if (IsLeftAlone()) return kTimedOut;
  for (int left = 2; left > 0; --left) {
    if (const auto code = SetOnce(variable, kPatienceForSet)) return *code;
    // Either the request was lost or the answer.
    const Reading now = Get({{variable.oid}}).front();
    if (now.Is(variable.value)) return platform::kOk;
    if (now.code == kTimedOut) return kTimedOut;
  }
  return kTimedOut;
}

// The value that is there now says that it was done only if it was not there before.
platform::ResultCode Inquiry::Act(const Variable& variable) {
  const Reading before = Get({{variable.oid}}).front();
  if (before.code == kTimedOut) return kTimedOut;
  if (const auto code = SetOnce(variable, kPatienceForAct)) return *code;
  isInDoubt_ = before.Is(variable.value) || !Get({{variable.oid}}).front().Is(variable.value);
  return isInDoubt_ ? kTimedOut : platform::kOk;
}

std::optional<platform::ResultCode> Inquiry::SetOnce(const Variable& variable, Clock::duration patience) {
  const Request request{Command::kSet, 0, 0, {variable}};
  const auto until = session_.Now() + patience;
  bool isReopened = false;
  auto ticket = session_.Send(request);
  while (ticket) {
    const auto arrival = session_.Receive(until);
    if (!arrival) return std::nullopt;
    Heard(*arrival);
    if (arrival->ticket != *ticket) continue;
    if (arrival->kind == ArrivalKind::kResponse) return ResultOfError(arrival->response.status);
    if (RefusesAll(arrival->kind)) return kLogonFailure;
    if (arrival->kind != ArrivalKind::kOtherEngine || std::exchange(isReopened, true)) return platform::kFailed;
    // Nothing was done: then it does no harm to send it again.
    ticket = session_.Reopen() ? session_.Send(request) : std::nullopt;
  }
  LeaveAlone();
  return kTimedOut;
}

bool Inquiry::IsLeftAlone() {
  if (!aloneUntil_) return false;
  // An answer that comes late shows that somebody is there.
  if (const auto arrival = session_.Receive(session_.Now())) Heard(*arrival);
  if (aloneUntil_ && session_.Now() >= *aloneUntil_) aloneUntil_.reset();
  return aloneUntil_.has_value();
}

void Inquiry::LeaveAlone() { aloneUntil_ = session_.Now() + kLeftAlone; }

void Inquiry::Heard(const Session::Arrival& arrival) {
  aloneUntil_.reset();
  refusal_ = arrival.kind == ArrivalKind::kResponse || RefusesAll(arrival.kind) ? arrival.kind : refusal_;
}

}  // namespace snmp
