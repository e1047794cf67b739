#include "snmp/walk.h"

#include "tests/snmp/scripted_session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

using namespace std::chrono_literals;
using snmp::ErrorStatus;
using snmp::Oid;
using snmp::Request;
using snmp::Response;
using snmp::Value;
using snmp::ValueType;
using snmp::Variable;
using snmp::WalkEnd;
using Later = ScriptedSession::Later;

const Oid kRoot = {1, 3, 6, 9};

class WalkTest : public testing::Test {
 protected:
  WalkTest() {
    session.device = [this](const Request& request) { return std::vector<Later>{{10ms, Answer(request)}}; };
    for (std::uint32_t i = 0; i < 120; ++i) values[{1, 3, 6, 9, i / 50, i}] = Number(i);
    values[{1, 3, 6, 8, 7}] = values[{1, 3, 6, 10}] = Number(9999);
  }

  static Value Number(std::int64_t number) { return {ValueType::kInteger, number, {}}; }

  // As a good device does it.
  Response Answer(const Request& request) const {
    Response response;
    Oid at = request.variables.front().oid;
    if (request.command == snmp::Command::kGet) {
      const auto found = values.find(at);
      response.variables.push_back(
          {at, found == values.end() ? Value{ValueType::kNoSuchObject, 0, {}} : found->second});
      return response;
    }
    for (std::int64_t i = 0; i < request.maxRepetitions; ++i) {
      const auto next = values.upper_bound(at);
      if (next == values.end()) {
        response.variables.push_back({at, {ValueType::kEndOfMibView, 0, {}}});
        break;
      }
      response.variables.push_back({next->first, next->second});
      at = next->first;
    }
    return response;
  }

  // The numbers that the walk has met, when they are as they should be.
  std::size_t Walk(WalkEnd end, const Oid& root = kRoot) {
    const snmp::Walked walked = snmp::Walk(inquiry, root);
    EXPECT_EQ(end, walked.end);
    for (const Variable& variable : walked.variables) EXPECT_EQ(values.at(variable.oid), variable.value);
    EXPECT_TRUE(std::is_sorted(walked.variables.begin(), walked.variables.end(),
                               [](const Variable& a, const Variable& b) { return a.oid < b.oid; }));
    return walked.variables.size();
  }

  std::map<Oid, Value> values;
  ScriptedSession session;
  snmp::Inquiry inquiry{session};
};

TEST_F(WalkTest, MeetsAllBelowItsRootManyAtATime) {
  EXPECT_EQ(120u, Walk(WalkEnd::kAll));
  EXPECT_EQ(3u, session.sent.size());
  EXPECT_EQ(50u, Walk(WalkEnd::kAll, {1, 3, 6, 9, 0}));
  values.erase({1, 3, 6, 10});
  EXPECT_EQ(120u, Walk(WalkEnd::kAll));  // up to the end of all
}

TEST_F(WalkTest, OfAValueMeetsTheValueAndOfNothingNothing) {
  EXPECT_EQ(1u, Walk(WalkEnd::kAll, {1, 3, 6, 9, 0, 7}));
  values.erase({1, 3, 6, 10});
  EXPECT_EQ(1u, snmp::Walk(inquiry, {1, 3, 7}).variables.size());
  EXPECT_EQ(ValueType::kNoSuchObject, snmp::Walk(inquiry, {1, 3, 7}).variables.front().value.type);
}

TEST_F(WalkTest, GoesOnWhenDatagramsAreLost) {
  int count = 0;
  session.device = [&](const Request& request) {
    return ++count % 3 != 0 ? std::vector<Later>{} : std::vector<Later>{{10ms, Answer(request)}};
  };
  EXPECT_EQ(120u, Walk(WalkEnd::kAll));
}

TEST_F(WalkTest, EndsWhereTheDeviceFallsSilent) {
  session.device = [&](const Request& request) {
    return session.sent.size() > 1 ? std::vector<Later>{} : std::vector<Later>{{10ms, Answer(request)}};
  };
  EXPECT_EQ(50u, Walk(WalkEnd::kNoAnswer));
}

TEST_F(WalkTest, FindsADeviceAgainThatHasRestarted) {
  session.device = [&](const Request& request) {
    const bool isOther = session.sent.size() > 1 && session.reopened == 0;
    return std::vector<Later>{
        {10ms, Answer(request), isOther ? snmp::ArrivalKind::kOtherEngine : snmp::ArrivalKind::kResponse}};
  };
  session.reopens = [] { return true; };
  EXPECT_EQ(120u, Walk(WalkEnd::kAll));
  EXPECT_EQ(1, session.reopened);
}

TEST_F(WalkTest, EndsWhereTheAnswersDoNotGoUp) {
  const struct {
    const char* name;
    Variable next;  // after 1.3.6.9.0.3
    std::size_t met;
  } cases[] = {
      {"the same", {{1, 3, 6, 9, 0, 3}, Number(3)}, 4},
      {"back", {{1, 3, 6, 9, 0, 1}, Number(1)}, 4},
      {"out of the root, back", {{1, 3, 5}, Number(1)}, 4},
  };
  for (const auto& c : cases) {
    session.device = [&](const Request& request) {
      Response response = Answer(request);
      if (response.variables.size() > 4) response.variables[4] = c.next;
      return std::vector<Later>{{10ms, std::move(response)}};
    };
    EXPECT_EQ(c.met, Walk(WalkEnd::kInCircles)) << c.name;
  }
  session.device = [](const Request&) { return std::vector<Later>{{10ms, Response{}}}; };
  EXPECT_EQ(0u, Walk(WalkEnd::kInCircles));
}

TEST_F(WalkTest, ComesUpToAValueThatCannotBeRead) {
  for (const ErrorStatus status : {ErrorStatus::kTooBig, ErrorStatus::kGenErr}) {
    session.device = [&, status](const Request& request) {
      Response response = Answer(request);
      const auto bad = std::find_if(response.variables.begin(), response.variables.end(),
                                    [](const Variable& variable) { return variable.value.number == 61; });
      if (bad != response.variables.end()) response = {status, 1, {}};
      return std::vector<Later>{{10ms, std::move(response)}};
    };
    EXPECT_EQ(61u, Walk(WalkEnd::kRefused));
  }
  session.device = [](const Request&) { return std::vector<Later>{{10ms, {}, snmp::ArrivalKind::kLevelRefused}}; };
  EXPECT_EQ(0u, Walk(WalkEnd::kRefused));
}

TEST_F(WalkTest, EndsWhenThereIsMoreThanAnybodyHas) {
  const std::string large(60'000, 'x');
  session.device = [&](const Request& request) {
    Oid oid = request.variables.front().oid;
    if (oid == kRoot) oid.push_back(0);
    ++oid.back();
    return std::vector<Later>{{1ms, {ErrorStatus::kNoError, 0, {{oid, {ValueType::kOctets, 0, large}}}}}};
  };
  const snmp::Walked walked = snmp::Walk(inquiry, kRoot);
  EXPECT_EQ(WalkEnd::kTooMuch, walked.end);
  EXPECT_LE(walked.variables.size(), 64'000'000u / 60'000);
  EXPECT_GT(walked.variables.size(), 1'000u);
}

}  // namespace
