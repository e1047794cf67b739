#include "snmp/inquiry.h"

#include "tests/snmp/scripted_session.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace std::chrono_literals;
using snmp::ArrivalKind;
using snmp::ErrorStatus;
using snmp::Oid;
using snmp::Reading;
using snmp::Request;
using snmp::Response;
using snmp::Value;
using snmp::ValueType;
using snmp::Variable;
using snmp::Wanted;
using Later = ScriptedSession::Later;

Oid OidNumber(std::uint32_t number) { return {1, 3, 6, 1, 4, 1, 4242, 10, number}; }
Value ValueNumber(std::uint32_t number) { return {ValueType::kInteger, number, {}}; }

std::vector<Wanted> Numbers(std::uint32_t count) {
  std::vector<Wanted> wanted;
  for (std::uint32_t i = 0; i < count; ++i) wanted.push_back({OidNumber(i)});
  return wanted;
}

// Each setting has its own number for a value.
Response Answered(const Request& request) {
  Response response;
  for (const Variable& variable : request.variables) {
    response.variables.push_back({variable.oid, ValueNumber(variable.oid.back())});
  }
  return response;
}

Response Failed(ErrorStatus status, std::size_t index) { return {status, index, {}}; }

// The codes of readings whose values are all what they should be.
std::vector<platform::ResultCode> Codes(const std::vector<Reading>& readings) {
  std::vector<platform::ResultCode> codes;
  for (std::uint32_t i = 0; i < readings.size(); ++i) {
    codes.push_back(readings[i].code);
    const Value expected = readings[i].code == platform::kOk ? ValueNumber(i) : Value{};
    EXPECT_EQ(expected, readings[i].value) << i;
  }
  return codes;
}

std::vector<platform::ResultCode> AllOf(std::size_t count, platform::ResultCode code) {
  return std::vector<platform::ResultCode>(count, code);
}

class InquiryTest : public testing::Test {
 protected:
  InquiryTest() {
    session.device = [](const Request& request) { return std::vector<Later>{{10ms, Answered(request)}}; };
  }

  // Loses so many requests, and then none.
  void LoseFirst(int count) {
    session.device = [count](const Request& request) mutable {
      return count-- > 0 ? std::vector<Later>{} : std::vector<Later>{{10ms, Answered(request)}};
    };
  }

  ScriptedSession session;
  snmp::Inquiry inquiry{session};
};

TEST_F(InquiryTest, ManyValuesTravelInFullDatagramsSeveralAtOnce) {
  EXPECT_EQ(AllOf(14000, platform::kOk), Codes(inquiry.Get(Numbers(14000))));
  EXPECT_LT(session.Elapsed(), 500ms);
  EXPECT_EQ(8u, session.mostUnderWay);
  std::size_t largest = 0;
  for (const Request& request : session.sent) {
    std::size_t size = 0;
    for (const Variable& variable : Answered(request).variables) size += SizeInMessage(variable);
    largest = std::max(largest, size);
  }
  EXPECT_LE(largest, 1250u);
  EXPECT_LT(session.sent.size(), 14000u / 30);
}

TEST_F(InquiryTest, LongValuesTakeTheirRoom) {
  std::vector<Wanted> wanted = Numbers(40);
  for (Wanted& one : wanted) one.valueSize = 600;
  inquiry.Get(wanted);
  EXPECT_EQ(20u, session.sent.size());
  session.sent.clear();
  wanted.resize(1);
  wanted[0].valueSize = 60000;
  EXPECT_EQ(AllOf(1, platform::kOk), Codes(inquiry.Get(wanted)));
}

TEST_F(InquiryTest, NothingWantedIsNothingAsked) {
  EXPECT_EQ(0u, inquiry.Get({}).size());
  EXPECT_EQ(0u, session.sent.size());
}

TEST_F(InquiryTest, WhatIsLostThreeTimesIsRead) {
  LoseFirst(3);
  EXPECT_EQ(AllOf(3, platform::kOk), Codes(inquiry.Get(Numbers(3))));
  EXPECT_EQ(4u, session.sent.size());
}

TEST_F(InquiryTest, WhoAnswersNeverIsLeftAloneForFiveSeconds) {
  LoseFirst(1000);
  EXPECT_EQ(AllOf(3, snmp::kTimedOut), Codes(inquiry.Get(Numbers(3))));
  EXPECT_EQ(4u, session.sent.size());
  const auto waited = session.Elapsed();
  EXPECT_LT(waited, 5s);
  LoseFirst(0);
  session.Pass(4900ms);
  EXPECT_EQ(AllOf(3, snmp::kTimedOut), Codes(inquiry.Get(Numbers(3))));
  EXPECT_EQ(snmp::kTimedOut, inquiry.Set({OidNumber(1), ValueNumber(1)}, snmp::Again::kOnce));
  EXPECT_EQ(4u, session.sent.size());
  EXPECT_EQ(waited + 4900ms, session.Elapsed());
  session.Pass(100ms);
  EXPECT_EQ(AllOf(3, platform::kOk), Codes(inquiry.Get(Numbers(3))));
}

TEST_F(InquiryTest, AnAnswerThatComesAfterAllShowsThatSomebodyIsThere) {
  session.device = [](const Request& request) { return std::vector<Later>{{6s, Answered(request)}}; };
  inquiry.Get(Numbers(1));
  LoseFirst(0);
  session.Pass(3s);
  EXPECT_EQ(AllOf(1, platform::kOk), Codes(inquiry.Get(Numbers(1))));
}

TEST_F(InquiryTest, WhatCannotBeSentIsNotWaitedFor) {
  session.canSend = false;
  EXPECT_EQ(AllOf(100, snmp::kTimedOut), Codes(inquiry.Get(Numbers(100))));
  EXPECT_EQ(0ms, session.Elapsed());
}

TEST_F(InquiryTest, ALateAnswerToTheFirstRequestServes) {
  bool isFirst = true;
  session.device = [&isFirst](const Request& request) {
    return std::exchange(isFirst, false) ? std::vector<Later>{{900ms, Answered(request)}} : std::vector<Later>{};
  };
  EXPECT_EQ(AllOf(2, platform::kOk), Codes(inquiry.Get(Numbers(2))));
  EXPECT_EQ(900ms, session.Elapsed());
}

TEST_F(InquiryTest, ANearDeviceIsAskedAgainSooner) {
  for (int i = 0; i < 30; ++i) inquiry.Get(Numbers(1));
  const auto before = session.Elapsed();
  LoseFirst(1);
  inquiry.Get(Numbers(1));
  EXPECT_EQ(before + 210ms, session.Elapsed());
}

TEST_F(InquiryTest, WhateverHappensToDatagramsOnlyValuesOfTheDeviceAreRead) {
  std::mt19937 chance(5);
  for (int round = 0; round < 60; ++round) {
    session.device = [&chance](const Request& request) {
      std::vector<Later> later;
      while (chance() % 3 != 0) {  // none, one, or more
        later.push_back({std::chrono::milliseconds(chance() % 700), Answered(request)});
      }
      return later;
    };
    std::size_t read = 0;
    for (const auto code : Codes(inquiry.Get(Numbers(300)))) {
      EXPECT_TRUE(code == platform::kOk || code == snmp::kTimedOut) << code;
      read += code == platform::kOk ? 1u : 0u;
    }
    EXPECT_GT(read, 200u);
    EXPECT_LT(session.sent.size(), 200u);
    session.sent.clear();
  }
}

TEST_F(InquiryTest, AnErrorAtAnyPlaceIsOfThatValueAlone) {
  for (std::uint32_t broken = 0; broken < 12; ++broken) {
    session.device = [broken](const Request& request) {
      for (std::size_t i = 0; i < request.variables.size(); ++i) {
        if (request.variables[i].oid == OidNumber(broken)) {
          return std::vector<Later>{{10ms, Failed(ErrorStatus::kGenErr, i + 1)}};
        }
      }
      return std::vector<Later>{{10ms, Answered(request)}};
    };
    auto expected = AllOf(12, platform::kOk);
    expected[broken] = platform::kFailed;
    EXPECT_EQ(expected, Codes(inquiry.Get(Numbers(12)))) << broken;
  }
}

TEST_F(InquiryTest, AnErrorOfNoPlaceIsLookedFor) {
  for (const std::size_t index : {std::size_t{0}, std::size_t{99}}) {
    session.device = [index](const Request& request) {
      for (const Variable& variable : request.variables) {
        if (variable.oid == OidNumber(7)) return std::vector<Later>{{10ms, Failed(ErrorStatus::kNoAccess, index)}};
      }
      return std::vector<Later>{{10ms, Answered(request)}};
    };
    auto expected = AllOf(20, platform::kOk);
    expected[7] = platform::kAccessDenied;
    EXPECT_EQ(expected, Codes(inquiry.Get(Numbers(20)))) << index;
  }
}

TEST_F(InquiryTest, WhoMayReadNothingIsToldSoOnce) {
  session.device = [](const Request&) {
    return std::vector<Later>{{10ms, Failed(ErrorStatus::kAuthorizationError, 0)}};
  };
  EXPECT_EQ(AllOf(20, platform::kAccessDenied), Codes(inquiry.Get(Numbers(20))));
  EXPECT_EQ(1u, session.sent.size());
}

TEST_F(InquiryTest, WhatIsTooBigForOneAnswerComesInSeveral) {
  session.device = [](const Request& request) {
    const bool hasLongOne = std::any_of(request.variables.begin(), request.variables.end(),
                                        [](const Variable& variable) { return variable.oid == OidNumber(9); });
    const bool isTooBig = request.variables.size() > 3 || hasLongOne;
    return std::vector<Later>{{10ms, isTooBig ? Failed(ErrorStatus::kTooBig, 1) : Answered(request)}};
  };
  auto expected = AllOf(20, platform::kOk);
  expected[9] = platform::kFailed;
  EXPECT_EQ(expected, Codes(inquiry.Get(Numbers(20))));
}

TEST_F(InquiryTest, AnAnswerToSomethingElseIsNone) {
  const std::function<void(Response&)> lies[] = {
      [](Response& response) { response.variables.pop_back(); },
      [](Response& response) { response.variables.push_back(response.variables.front()); },
      [](Response& response) { response.variables.front().oid.push_back(0); },
      [](Response& response) { response.variables.clear(); },
  };
  for (const auto& lie : lies) {
    session.device = [&lie](const Request& request) {
      Response response = Answered(request);
      if (request.variables.front().oid == OidNumber(0)) lie(response);
      return std::vector<Later>{{10ms, response}};
    };
    auto expected = AllOf(5, platform::kOk);
    expected[0] = platform::kFailed;
    EXPECT_EQ(expected, Codes(inquiry.Get(Numbers(5))));
  }
}

TEST_F(InquiryTest, OneThatIsSlowFailsAlone) {
  session.device = [](const Request& request) {
    const bool isSlow = request.variables.front().oid == OidNumber(0);
    return std::vector<Later>{{isSlow ? 60s : 300ms, Answered(request)}};
  };
  std::vector<Wanted> wanted = Numbers(40);
  for (Wanted& one : wanted) one.valueSize = 1200;
  auto expected = AllOf(40, platform::kOk);
  expected[0] = snmp::kTimedOut;
  EXPECT_EQ(expected, Codes(inquiry.Get(wanted)));
}

TEST_F(InquiryTest, WhoIsNotKnownThereIsToldAtOnce) {
  for (const ArrivalKind kind : {ArrivalKind::kUnknownUser, ArrivalKind::kWrongPassword, ArrivalKind::kLevelRefused}) {
    session.sent.clear();
    session.device = [kind](const Request&) { return std::vector<Later>{{10ms, {}, kind}}; };
    EXPECT_EQ(AllOf(1000, snmp::kLogonFailure), Codes(inquiry.Get(Numbers(1000))));
    EXPECT_EQ(8u, session.sent.size());
    EXPECT_EQ(snmp::kLogonFailure, inquiry.Set({OidNumber(1), ValueNumber(1)}, snmp::Again::kOnce));
    EXPECT_EQ(kind, inquiry.Refusal());
  }
  LoseFirst(0);
  inquiry.Get(Numbers(1));
  EXPECT_EQ(ArrivalKind::kResponse, inquiry.Refusal());
}

TEST_F(InquiryTest, AReportOfAnotherKindIsAFailure) {
  session.device = [](const Request&) { return std::vector<Later>{{10ms, {}, ArrivalKind::kOtherReport}}; };
  EXPECT_EQ(AllOf(3, platform::kFailed), Codes(inquiry.Get(Numbers(3))));
  EXPECT_EQ(platform::kFailed, inquiry.Set({OidNumber(1), ValueNumber(1)}, snmp::Again::kOnce));
}

TEST_F(InquiryTest, WithADeviceThatHasRestartedItBeginsAnewOnce) {
  bool hasRestarted = true;
  session.device = [&hasRestarted](const Request& request) {
    if (hasRestarted) return std::vector<Later>{{10ms, {}, ArrivalKind::kOtherEngine}};
    return std::vector<Later>{{10ms, Answered(request)}};
  };
  session.reopens = [&hasRestarted] {
    hasRestarted = false;
    return true;
  };
  EXPECT_EQ(AllOf(500, platform::kOk), Codes(inquiry.Get(Numbers(500))));
  EXPECT_EQ(1, session.reopened);
  hasRestarted = true;
  EXPECT_EQ(platform::kOk, inquiry.Set({OidNumber(1), ValueNumber(1)}, snmp::Again::kNever));
  EXPECT_EQ(2, session.reopened);

  session.reopens = [] { return true; };
  hasRestarted = true;
  EXPECT_EQ(AllOf(2, snmp::kTimedOut), Codes(inquiry.Get(Numbers(2))));
  EXPECT_EQ(3, session.reopened);
}

TEST_F(InquiryTest, WhoIsSilentMayHaveRestarted) {
  session.device = [this](const Request& request) {
    return session.reopened == 0 ? std::vector<Later>{} : std::vector<Later>{{10ms, Answered(request)}};
  };
  session.reopens = [] { return true; };
  EXPECT_EQ(AllOf(500, platform::kOk), Codes(inquiry.Get(Numbers(500))));
}

// --- Set ---

class SetTest : public InquiryTest {
 protected:
  enum class Fate { kDone, kLost, kAnswerLost };

  // A device with one setting. What becomes of each Set in turn; of all more, the last.
  void Meet(std::vector<Fate> sets) {
    session.device = [this, sets, next = std::size_t{0}](const Request& request) mutable {
      if (request.command != snmp::Command::kSet) {
        return std::vector<Later>{{10ms, {ErrorStatus::kNoError, 0, {{request.variables.front().oid, stored}}}}};
      }
      const Fate fate = sets[std::min(next++, sets.size() - 1)];
      if (fate != Fate::kLost) {
        stored = request.variables.front().value;
        ++done;
      }
      return fate == Fate::kDone ? std::vector<Later>{{10ms, {}}} : std::vector<Later>{};
    };
  }

  platform::ResultCode Set(snmp::Again again) { return inquiry.Set({OidNumber(5), ValueNumber(5)}, again); }

  Value stored;
  int done = 0;
};

TEST_F(SetTest, IsSentOnceAndAnswered) {
  Meet({Fate::kDone});
  EXPECT_EQ(platform::kOk, Set(snmp::Again::kOnce));
  EXPECT_EQ(1, done);
  EXPECT_EQ(1u, session.sent.size());
  EXPECT_EQ(ValueNumber(5), stored);
}

TEST_F(SetTest, WhoseAnswerIsLostIsNotDoneTwice) {
  for (const auto again : {snmp::Again::kOnce, snmp::Again::kNever}) {
    done = 0;
    stored = {};
    Meet({Fate::kAnswerLost});
    EXPECT_EQ(platform::kOk, Set(again));
    EXPECT_EQ(1, done);
  }
}

TEST_F(SetTest, ThatIsLostIsSentOnceMore) {
  Meet({Fate::kLost, Fate::kDone});
  EXPECT_EQ(platform::kOk, Set(snmp::Again::kOnce));
  EXPECT_EQ(1, done);
  Meet({Fate::kLost, Fate::kAnswerLost});
  stored = {};
  EXPECT_EQ(platform::kOk, Set(snmp::Again::kOnce));
  Meet({Fate::kLost});
  stored = {};
  session.sent.clear();
  EXPECT_EQ(snmp::kTimedOut, Set(snmp::Again::kOnce));
  EXPECT_EQ(4u, session.sent.size());  // each with a look at what the device has
}

TEST_F(SetTest, ThatActsIsNeverSentAgain) {
  Meet({Fate::kLost, Fate::kDone});
  EXPECT_EQ(snmp::kTimedOut, Set(snmp::Again::kNever));
  EXPECT_EQ(0, done);
}

TEST_F(SetTest, ThatActsIsNotTakenForDoneByAValueThatWasThereBefore) {
  for (const Fate fate : {Fate::kLost, Fate::kAnswerLost}) {
    stored = ValueNumber(5);
    done = 0;
    Meet({fate});
    EXPECT_EQ(snmp::kTimedOut, Set(snmp::Again::kNever));
    EXPECT_EQ(fate == Fate::kLost ? 0 : 1, done);
    EXPECT_TRUE(inquiry.IsInDoubt());
  }
  Meet({Fate::kDone});
  EXPECT_EQ(platform::kOk, Set(snmp::Again::kNever));
  EXPECT_FALSE(inquiry.IsInDoubt());
  stored = ValueNumber(4);
  Meet({Fate::kAnswerLost});
  EXPECT_EQ(platform::kOk, Set(snmp::Again::kNever));
  EXPECT_FALSE(inquiry.IsInDoubt());
}

TEST_F(SetTest, ThatActsIsNotSentToADeviceThatIsGone) {
  LoseFirst(1000);
  EXPECT_EQ(snmp::kTimedOut, Set(snmp::Again::kNever));
  EXPECT_FALSE(inquiry.IsInDoubt());
  EXPECT_EQ(0, std::count_if(session.sent.begin(), session.sent.end(),
                             [](const Request& request) { return request.command == snmp::Command::kSet; }));
}

TEST_F(SetTest, ThatTheDeviceRefusesFailsAsItSays) {
  session.device = [](const Request&) { return std::vector<Later>{{10ms, Failed(ErrorStatus::kWrongValue, 1)}}; };
  EXPECT_EQ(snmp::kInvalidArgument, Set(snmp::Again::kOnce));
  EXPECT_EQ(1u, session.sent.size());
}

TEST_F(SetTest, ToADeviceThatIsGoneIsNotSentAgain) {
  LoseFirst(1000);
  EXPECT_EQ(snmp::kTimedOut, Set(snmp::Again::kOnce));
  EXPECT_EQ(1, std::count_if(session.sent.begin(), session.sent.end(),
                             [](const Request& request) { return request.command == snmp::Command::kSet; }));
}

TEST_F(SetTest, IsNotTakenForAnsweredByWhatComesForAnotherRequest) {
  session.device = [](const Request& request) {
    if (request.command == snmp::Command::kSet) return std::vector<Later>{};
    return std::vector<Later>{{300ms, Answered(request)}, {900ms, Answered(request)}};
  };
  inquiry.Get(Numbers(1));
  EXPECT_EQ(platform::kOk, Set(snmp::Again::kOnce));  // the setting has the value
  const auto before = session.Elapsed();
  EXPECT_EQ(snmp::kTimedOut, inquiry.Set({OidNumber(5), ValueNumber(6)}, snmp::Again::kNever));
  EXPECT_GT(session.Elapsed(), before + 5s);
}

}  // namespace
