#include "simulator/logged_device.h"

#include <utility>

namespace simulator {
namespace {

using platform::ResultCode;

class LoggedDevice final : public platform::ISnmpConfig {
 public:
  LoggedDevice(std::unique_ptr<ISnmpConfig> device, LineLog& effects) : device_(std::move(device)), effects_(effects) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return Noted(Operation::kOrdinary, oid, type, value, device_->Set(oid, type, value));
  }
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return Noted(Operation::kOrdinary, oid, type, device_->Get(oid, type, value), value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return Noted(Operation::kSpecial, oid, type, value, device_->SetSpecial(oid, type, value));
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return Noted(Operation::kSpecial, oid, type, device_->GetSpecial(oid, type, value), value);
  }
  void ReadAhead(const std::function<std::vector<platform::Setting>()>& settings) override {
    device_->ReadAhead(settings);
  }

 private:
  ResultCode Noted(Operation operation, const WideString& oid, const WideString& type, const WideString& value,
                   ResultCode code) {
    effects_.Add(SetLine(operation, oid, type, value, code));
    return code;
  }
  ResultCode Noted(Operation operation, const WideString& oid, const WideString& type, ResultCode code,
                   const std::optional<WideString>& value) {
    effects_.Add(GetLine(operation, oid, type, code, value));
    return code;
  }

  std::unique_ptr<ISnmpConfig> device_;
  LineLog& effects_;
};

}  // namespace

std::unique_ptr<platform::ISnmpConfig> MakeLoggedDevice(std::unique_ptr<platform::ISnmpConfig> device,
                                                        LineLog& effects) {
  return std::make_unique<LoggedDevice>(std::move(device), effects);
}

}  // namespace simulator
