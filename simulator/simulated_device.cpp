#include "simulator/simulated_device.h"

#include <utility>

namespace simulator {
namespace {

using platform::ResultCode;

constexpr auto kUnknownServer = static_cast<ResultCode>(0x800401F3);

class SimulatedDevice : public platform::ISnmpConfig {
 public:
  SimulatedDevice(DeviceStore& store, LineLog& effects, DeviceWait wait)
      : store_(store), effects_(effects), wait_(std::move(wait)) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return SetBy(Operation::kOrdinary, oid, type, value);
  }
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return GetBy(Operation::kOrdinary, oid, type, value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return SetBy(Operation::kSpecial, oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return GetBy(Operation::kSpecial, oid, type, value);
  }

 private:
  ResultCode SetBy(Operation operation, const WideString& oid, const WideString& type, const WideString& value) {
    LetPass(oid);
    const ResultCode code = store_.Set(oid, value);
    effects_.Add(SetLine(operation, oid, type, value, code));
    return code;
  }

  ResultCode GetBy(Operation operation, const WideString& oid, const WideString& type,
                   std::optional<WideString>& value) {
    LetPass(oid);
    const ResultCode code = store_.Get(oid, value);
    effects_.Add(GetLine(operation, oid, type, code, value));
    return code;
  }

  void LetPass(const WideString& oid) const {
    const int delayMs = wait_ ? store_.DelayMs(oid) : 0;
    if (delayMs > 0) wait_(delayMs);
  }

  DeviceStore& store_;
  LineLog& effects_;
  const DeviceWait wait_;
};

}  // namespace

std::unique_ptr<platform::ISnmpConfig> MakeSimulatedDevice(DeviceStore& store, LineLog& effects, DeviceWait wait) {
  return std::make_unique<SimulatedDevice>(store, effects, std::move(wait));
}

platform::TableAnswer AnswerTableValue(const PropertyTables& tables, LineLog& effects, const WideString& progId,
                                       const WideString& table, const WideString& key) {
  using Stage = platform::TableAnswer::Stage;
  if (progId != kPropertyServer) return {Stage::kNoServer, kUnknownServer, {}};
  const auto text = tables.Find(table, key);
  const ResultCode code = text ? platform::kOk : platform::kFailed;
  effects.Add(TableLine(table, key, code, text.value_or(u"")));
  return {Stage::kCalled, code, text.value_or(u"")};
}

}  // namespace simulator
