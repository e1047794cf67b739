#include "snmp/result_codes.h"

#include <gtest/gtest.h>

namespace {

using snmp::ErrorStatus;
using snmp::ResultOfError;

TEST(ResultCodes, EachErrorOfAnAnswerIsAResultOfTheDevice) {
  const struct {
    std::uint32_t code;
    std::vector<int> errors;
  } cases[] = {
      {0, {0}},
      {0x80070005, {4, 6, 11, 16, 17}},    // read only, no access, no creation, authorization, not writable
      {0x80070057, {3, 7, 8, 9, 10, 12}},  // bad, wrong type, length, encoding and value, inconsistent
      {0x80004005, {1, 2, 5, 13, 14, 15, 18, 19, 255, -1}},
  };
  for (const auto& c : cases) {
    for (const int error : c.errors) {
      EXPECT_EQ(static_cast<platform::ResultCode>(c.code), ResultOfError(static_cast<ErrorStatus>(error))) << error;
    }
  }
}

TEST(ResultCodes, WhatADeviceRefusesIsRefusedForTheSameReasonOnBothSides) {
  for (const platform::ResultCode code : {platform::kAccessDenied, snmp::kInvalidArgument, platform::kFailed}) {
    EXPECT_EQ(code, ResultOfError(snmp::ErrorOfFailedSet(code)));
  }
}

}  // namespace
