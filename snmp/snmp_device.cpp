#include "snmp/snmp_device.h"

#include "snmp/value_codec.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

namespace snmp {
namespace {

using platform::ResultCode;

// More than this no datagram holds.
constexpr std::size_t kLongestValue = 60'000;
constexpr std::size_t kUsualSize = 16;

constexpr char16_t kLostOctets = u'\uFFFD';

class SnmpDevice final : public platform::ISnmpConfig {
 public:
  SnmpDevice(Inquiry& inquiry, DeviceHabits habits) : inquiry_(inquiry), habits_(std::move(habits)) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override;
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override;
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return Set(oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return Get(oid, type, value);
  }
  void ReadAhead(const std::function<std::vector<platform::Setting>()>& settings) override;

 private:
  // A reading that has not been asked for yet, and how often it may be.
  struct Held {
    Reading reading;
    int uses = 0;
  };
  // How a value came when it was last read.
  struct Seen {
    ValueType type = ValueType::kNull;
    std::size_t size = kUsualSize;
    bool isDamaged = false;
  };

  Reading Read(const Oid& oid);
  void Note(const Oid& oid, const Reading& reading);
  bool IsTruthValue(WideStringView type, ValueType received) const;

  Inquiry& inquiry_;
  const DeviceHabits habits_;
  std::map<Oid, Held> held_;
  std::map<Oid, Seen> seen_;
};

void SnmpDevice::ReadAhead(const std::function<std::vector<platform::Setting>()>& settings) {
  held_.clear();
  if (!settings) return;
  std::vector<Wanted> wanted;
  for (const platform::Setting& setting : settings()) {
    const auto oid = OidOf(setting.oid, habits_.namesRoot);
    if (!oid || held_[*oid].uses++ > 0) continue;
    const auto seen = seen_.find(*oid);
    wanted.push_back({*oid, seen == seen_.end() ? kUsualSize : seen->second.size});
  }
  const std::vector<Reading> readings = inquiry_.Get(wanted);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    // What came to nothing only because of its neighbours is asked for alone.
    if (readings[i].code == kTimedOut) {
      held_.erase(wanted[i].oid);
    } else {
      Note(wanted[i].oid, readings[i]);
      held_[wanted[i].oid].reading = readings[i];
    }
  }
}

ResultCode SnmpDevice::Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) {
  value.reset();
  const auto name = OidOf(oid, habits_.namesRoot);
  if (!name) return platform::kFailed;
  Reading reading = Read(*name);
  if (reading.code != platform::kOk) return reading.code;
  if (IsTruthValue(type, reading.value.type) && reading.value.number == 2) reading.value.number = 0;
  value = ReceivedText(reading.value);
  return value ? platform::kOk : platform::kFailed;
}

Reading SnmpDevice::Read(const Oid& oid) {
  if (const auto held = held_.find(oid); held != held_.end()) {
    Reading reading = held->second.reading;
    if (--held->second.uses == 0) held_.erase(held);
    return reading;
  }
  Reading reading = inquiry_.Get({{oid}}).front();
  Note(oid, reading);
  return reading;
}

void SnmpDevice::Note(const Oid& oid, const Reading& reading) {
  if (reading.code != platform::kOk || !ReceivedText(reading.value)) return;
  seen_[oid] = {reading.value.type, std::max(kUsualSize, reading.value.bytes.size()), IsDamagedText(reading.value)};
}

ResultCode SnmpDevice::Set(const WideString& oid, const WideString& type, const WideString& value) {
  held_.clear();
  const auto name = OidOf(oid, habits_.namesRoot);
  if (!name) return platform::kFailed;
  const auto seen = seen_.find(*name);
  const bool isDamaged = seen != seen_.end() && seen->second.isDamaged;
  if (isDamaged && value.find(kLostOctets) != WideString::npos) return kInvalidArgument;
  const ValueType travelsAs = seen == seen_.end() ? TravelsAs(type) : seen->second.type;
  if (IsWrittenByTheDeviceAlone(travelsAs)) return platform::kAccessDenied;
  auto sent = ValueToSend(travelsAs, value);
  if (!sent || sent->bytes.size() > kLongestValue) return kInvalidArgument;
  if (IsTruthValue(type, travelsAs) && sent->number == 0) sent->number = 2;
  const bool acts = habits_.acts && habits_.acts(oid, type);
  const ResultCode code = inquiry_.Set({*name, std::move(*sent)}, acts ? Again::kNever : Again::kOnce);
  if (habits_.inDoubt && inquiry_.IsInDoubt()) habits_.inDoubt(oid);
  return code;
}

bool SnmpDevice::IsTruthValue(WideStringView type, ValueType received) const {
  return habits_.truthValues && received == ValueType::kInteger && base::EqualsIgnoringCase(type, u"Bool");
}

}  // namespace

std::unique_ptr<platform::ISnmpConfig> MakeSnmpDevice(Inquiry& inquiry, DeviceHabits habits) {
  return std::make_unique<SnmpDevice>(inquiry, std::move(habits));
}

}  // namespace snmp
