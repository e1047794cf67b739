#include "snmp/result_codes.h"

#include <algorithm>
#include <iterator>

namespace snmp {
namespace {

const struct {
  platform::ResultCode code;
  ErrorStatus status;
} kRefusals[] = {
    {platform::kAccessDenied, ErrorStatus::kNoAccess},
    {static_cast<platform::ResultCode>(0x80070057), ErrorStatus::kWrongValue},  // an argument it cannot take
};

}  // namespace

ErrorStatus ErrorOfFailedSet(platform::ResultCode code) {
  const auto found = std::find_if(std::begin(kRefusals), std::end(kRefusals),
                                  [code](const auto& refusal) { return refusal.code == code; });
  return found == std::end(kRefusals) ? ErrorStatus::kCommitFailed : found->status;
}

}  // namespace snmp
