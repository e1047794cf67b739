#include "snmp/recent_sets.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using snmp::RecentSets;
using snmp::Response;
using snmp::ValueType;
using snmp::Variable;

const RecentSets::Clock::time_point kStart{1h};
const RecentSets::Origin kOrigin{"somebody", 7};
const std::vector<Variable> kSet = {{{1, 3, 1}, {ValueType::kInteger, 5, {}}}};
const Response kRefused{snmp::ErrorStatus::kCommitFailed, 1, {}};

TEST(RecentSets, TheSameSetHasTheAnswerThatWasGiven) {
  RecentSets sets;
  EXPECT_EQ(nullptr, sets.Find(kOrigin, kSet, kStart));
  sets.Add(kOrigin, kSet, kRefused, kStart);
  sets.Add({"somebody", 8}, kSet, {}, kStart);
  ASSERT_NE(nullptr, sets.Find(kOrigin, kSet, kStart + 9s));
  EXPECT_EQ(kRefused, *sets.Find(kOrigin, kSet, kStart + 9s));
  EXPECT_EQ(Response{}, *sets.Find({"somebody", 8}, kSet, kStart));
}

TEST(RecentSets, AnotherSenderNumberOrContentIsAnotherSet) {
  RecentSets sets;
  sets.Add(kOrigin, kSet, {}, kStart);
  EXPECT_EQ(nullptr, sets.Find({"other", 7}, kSet, kStart));
  EXPECT_EQ(nullptr, sets.Find({"somebody", 8}, kSet, kStart));
  EXPECT_EQ(nullptr, sets.Find(kOrigin, {{{1, 3, 1}, {ValueType::kInteger, 6, {}}}}, kStart));
  EXPECT_EQ(nullptr, sets.Find(kOrigin, {{{1, 3, 2}, {ValueType::kInteger, 5, {}}}}, kStart));
}

TEST(RecentSets, AreForgottenAfterTenSecondsAndWhenThereAreTooMany) {
  RecentSets sets;
  sets.Add(kOrigin, kSet, {}, kStart);
  EXPECT_EQ(nullptr, sets.Find(kOrigin, kSet, kStart + 10s));
  sets.Add(kOrigin, kSet, {}, kStart);
  for (std::size_t i = 1; i < RecentSets::kMost; ++i) sets.Add({"other", 1}, kSet, {}, kStart);
  EXPECT_NE(nullptr, sets.Find(kOrigin, kSet, kStart));
  sets.Add({"other", 1}, kSet, {}, kStart);
  EXPECT_EQ(nullptr, sets.Find(kOrigin, kSet, kStart));
}

}  // namespace
