#include "snmp/recording.h"

#include "base/utf8.h"
#include "snmp/value_codec.h"
#include "snmp/walk.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>
#include <utility>

namespace snmp {
namespace {

// How each type of a value is called on the network, and which type of a setting travels so.
const struct WireType {
  ValueType type;
  const char* wireName;
  WideStringView settingType;
  bool isItsOwn = true;  // a setting of that type travels as this
} kWireTypes[] = {
    {ValueType::kInteger, "INTEGER", u"Integer"},
    {ValueType::kOctets, "OCTET STRING", u"Octet String"},
    {ValueType::kIpAddress, "IpAddress", u"IP Address"},
    {ValueType::kCounter32, "Counter32", u"Counter"},
    {ValueType::kGauge32, "Gauge32", u"Gauge"},
    {ValueType::kTimeTicks, "TimeTicks", u"Time Ticks"},
    {ValueType::kOpaque, "Opaque", u"Opaque"},
    {ValueType::kObjectId, "OBJECT IDENTIFIER", u"Octet String", false},
    {ValueType::kCounter64, "Counter64", u"Octet String", false},
};

const WireType& WireTypeOf(ValueType type) {
  return *std::find_if(std::begin(kWireTypes), std::end(kWireTypes),
                       [type](const WireType& row) { return row.type == type; });
}

std::string WhyNot(const Reading& reading) {
  if (reading.code == platform::kOk) return "the device has none";
  if (reading.code == kTimedOut) return "the device does not answer";
  if (reading.code == platform::kAccessDenied) return "the device refuses it";
  return "the device cannot read it";
}

class Recorder {
 public:
  Recorder(Inquiry& inquiry, const std::vector<Sought>& sought, const RecordingOptions& options)
      : inquiry_(inquiry), sought_(sought), options_(options) {}

  Recording Run() {
    ReadSought();
    if (options_.root && !recording_.isBroken) ReadBelow(*options_.root);
    return std::move(recording_);
  }

 private:
  void ReadSought();
  void Take(const Sought& sought, Reading reading);
  void ReadBelow(const Oid& root);
  void TakeOther(const Variable& variable);
  void SayHowItEnded(const Oid& root, const Walked& walked);
  void Miss(const std::string& oid, const std::string& why) { recording_.missing.push_back(oid + ": " + why); }
  void Remark(const WideString& oid, const std::string& what) {
    recording_.remarks.push_back(base::ToUtf8(oid) + ": " + what);
  }
  void SayIfDamaged(const WideString& oid, const Value& value);

  Inquiry& inquiry_;
  const std::vector<Sought>& sought_;
  const RecordingOptions& options_;
  std::set<Oid> known_;  // those sought
  std::size_t asTexts_ = 0;
  Recording recording_;
};

void Recorder::ReadSought() {
  std::vector<Wanted> wanted;
  std::vector<const Sought*> of;
  for (const Sought& sought : sought_) {
    const auto oid = OidOf(sought.oid);
    if (oid && !known_.insert(*oid).second) continue;
    if (!options_.secrets && (sought.isSecret || IsSecret(sought.type))) {
      recording_.leftOut.push_back({sought.oid, sought.type, {}, {}, {}});
    } else if (oid) {
      wanted.push_back({*oid});
      of.push_back(&sought);
    } else if (sought.isExpected) {
      Miss(base::ToUtf8(sought.oid), "is no OID that SNMP can name");
    }
  }
  std::vector<Reading> readings = inquiry_.Get(wanted);
  const bool isSilent =
      std::any_of(readings.begin(), readings.end(), [](const Reading& reading) { return reading.code == kTimedOut; });
  // Slow with one of them, or gone.
  recording_.isBroken = isSilent && inquiry_.Get({{kUpTime}}).front().code == kTimedOut;
  for (std::size_t i = 0; i < readings.size(); ++i) Take(*of[i], std::move(readings[i]));
}

void Recorder::Take(const Sought& sought, Reading reading) {
  Value& value = reading.value;
  const bool isBool = base::EqualsIgnoringCase(sought.type, u"Bool");
  if (options_.truthValues && isBool && value.type == ValueType::kInteger && value.number == 2) value.number = 0;
  auto text = reading.code == platform::kOk ? ReceivedText(value) : std::nullopt;
  if (!text) {
    const bool isAbsent = reading.code == platform::kOk;
    if (sought.isExpected || !isAbsent) Miss(base::ToUtf8(sought.oid), WhyNot(reading));
    return;
  }
  const WireType& received = WireTypeOf(value.type);
  const WideString type = sought.type.empty() ? WideString(received.settingType) : sought.type;
  if (TravelsAs(type) != value.type) {
    Remark(sought.oid,
           "the type is " + base::ToUtf8(type) + " in the configuration, and " + received.wireName + " on the device");
  }
  SayIfDamaged(sought.oid, value);
  recording_.lines.push_back({sought.oid, type, std::move(*text), {}, {}});
}

void Recorder::SayIfDamaged(const WideString& oid, const Value& value) {
  if (IsDamagedText(value)) Remark(oid, "the value has octets that are no UTF-8; U+FFFD stands for them");
}

void Recorder::ReadBelow(const Oid& root) {
  const Walked walked = Walk(inquiry_, root);
  for (const Variable& variable : walked.variables) {
    if (!known_.contains(variable.oid)) TakeOther(variable);
  }
  if (asTexts_ > 0) {
    recording_.remarks.push_back(
        std::to_string(asTexts_) +
        " values are OBJECT IDENTIFIER or Counter64, which a device file lacks: they are texts "
        "there, which cannot be set");
  }
  SayHowItEnded(root, walked);
}

void Recorder::TakeOther(const Variable& variable) {
  auto text = ReceivedText(variable.value);
  if (!text) return;
  const WireType& row = WireTypeOf(variable.value.type);
  simulator::DeviceLine line{OidText(variable.oid), WideString(row.settingType), std::move(*text), {}, {}};
  if (!row.isItsOwn) {
    line.optionsText = u"readonly";
    ++asTexts_;
  }
  SayIfDamaged(line.oid, variable.value);
  recording_.lines.push_back(std::move(line));
}

void Recorder::SayHowItEnded(const Oid& root, const Walked& walked) {
  const std::string last = base::ToUtf8(OidText(walked.variables.empty() ? root : walked.variables.back().oid));
  switch (walked.end) {
    case WalkEnd::kAll: break;
    case WalkEnd::kNoAnswer: recording_.isBroken = true; break;
    case WalkEnd::kRefused: Miss(last, "what stands behind it the device cannot read: the walk ends here"); break;
    case WalkEnd::kInCircles:
      Miss(last, "the device says that nothing or a smaller OID is next: the walk ends here");
      break;
    case WalkEnd::kTooMuch: Miss(last, "there is more than a recording can hold: the walk ends here"); break;
  }
}

}  // namespace

Recording Record(Inquiry& inquiry, const std::vector<Sought>& sought, const RecordingOptions& options) {
  return Recorder(inquiry, sought, options).Run();
}

}  // namespace snmp
