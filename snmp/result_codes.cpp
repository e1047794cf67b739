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
    {kInvalidArgument, ErrorStatus::kWrongValue},
};

const struct {
  ErrorStatus status;
  platform::ResultCode code;
} kResults[] = {
    {ErrorStatus::kNoError, platform::kOk},
    {ErrorStatus::kReadOnly, platform::kAccessDenied},
    {ErrorStatus::kNotWritable, platform::kAccessDenied},
    {ErrorStatus::kNoAccess, platform::kAccessDenied},
    {ErrorStatus::kNoCreation, platform::kAccessDenied},
    {ErrorStatus::kAuthorizationError, platform::kAccessDenied},
    {ErrorStatus::kWrongType, kInvalidArgument},
    {ErrorStatus::kWrongLength, kInvalidArgument},
    {ErrorStatus::kWrongEncoding, kInvalidArgument},
    {ErrorStatus::kWrongValue, kInvalidArgument},
    {ErrorStatus::kBadValue, kInvalidArgument},
    {ErrorStatus::kInconsistentValue, kInvalidArgument},
};

}  // namespace

ErrorStatus ErrorOfFailedSet(platform::ResultCode code) {
  const auto found = std::find_if(std::begin(kRefusals), std::end(kRefusals),
                                  [code](const auto& refusal) { return refusal.code == code; });
  return found == std::end(kRefusals) ? ErrorStatus::kCommitFailed : found->status;
}

platform::ResultCode ResultOfError(ErrorStatus status) {
  const auto found = std::find_if(std::begin(kResults), std::end(kResults),
                                  [status](const auto& result) { return result.status == status; });
  return found == std::end(kResults) ? platform::kFailed : found->code;
}

}  // namespace snmp
