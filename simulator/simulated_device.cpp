#include "simulator/simulated_device.h"

#include "simulator/logged_device.h"

#include <utility>

namespace simulator {
namespace {

using platform::ResultCode;

constexpr auto kUnknownServer = static_cast<ResultCode>(0x800401F3);

// Both kinds of operations reach the same values.
class StoredDevice final : public platform::ISnmpConfig {
 public:
  StoredDevice(DeviceStore& store, DeviceWait wait) : store_(store), wait_(std::move(wait)) {}

  ResultCode Set(const WideString& oid, const WideString&, const WideString& value) override {
    LetPass(oid);
    return store_.Set(oid, value);
  }
  ResultCode Get(const WideString& oid, const WideString&, std::optional<WideString>& value) override {
    LetPass(oid);
    return store_.Get(oid, value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return Set(oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return Get(oid, type, value);
  }

 private:
  void LetPass(const WideString& oid) const {
    const int delayMs = wait_ ? store_.DelayMs(oid) : 0;
    if (delayMs > 0) wait_(delayMs);
  }

  DeviceStore& store_;
  const DeviceWait wait_;
};

}  // namespace

std::unique_ptr<platform::ISnmpConfig> MakeSimulatedDevice(DeviceStore& store, LineLog& effects, DeviceWait wait) {
  return MakeLoggedDevice(std::make_unique<StoredDevice>(store, std::move(wait)), effects);
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
