#include "settings/target.h"

namespace settings {

using platform::ResultCode;

bool IsRefusal(ResultCode code) {
  constexpr auto kInvalidArgument = static_cast<ResultCode>(0x80070057);
  return code == platform::kAccessDenied || code == kInvalidArgument;
}

ResultCode StorageTarget::Get(const WideString& oid, const WideString&, std::optional<WideString>& value) {
  return store_.Get(oid, value);
}

std::vector<ResultCode> StorageTarget::Set(const std::vector<TargetSet>& sets) {
  std::vector<ResultCode> codes;
  if (sets.size() > 1) {
    std::vector<simulator::DeviceStore::Change> changes;
    changes.reserve(sets.size());
    for (const TargetSet& set : sets) changes.push_back({set.oid, set.value});
    const ResultCode code = store_.Set(changes);
    if (code >= 0) return std::vector<ResultCode>(sets.size(), code);
  }
  // One at a time it shows which is refused.
  codes.reserve(sets.size());
  for (const TargetSet& set : sets) {
    const bool hasFailed = !codes.empty() && codes.back() < 0 && !IsRefusal(codes.back());
    codes.push_back(hasFailed ? platform::kFailed : store_.Set(set.oid, set.value));
  }
  return codes;
}

// Few are each as safe as a person's edit; waiting for the disk after each of thousands would take minutes.
std::size_t StorageTarget::MostAtOnce(std::size_t all) const {
  constexpr std::size_t kFew = 256;
  constexpr std::size_t kMany = 1024;
  return all <= kFew ? 1 : kMany;
}

}  // namespace settings
