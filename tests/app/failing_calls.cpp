#include "tests/app/failing_calls.h"

#include "base/utf8.h"

#include <stdexcept>
#include <utility>

namespace tests {
namespace {

using platform::ResultCode;

const char* NameOf(platform::host::Use use) {
  using platform::host::Use;
  switch (use) {
    case Use::kOpenFile: return "open";
    case Use::kReadFile: return "read";
    case Use::kCreateFile: return "create";
    case Use::kWriteFile: return "write";
    case Use::kReplaceFile: return "replace";
    case Use::kStartProgram: return "start";
    case Use::kMakeWindow: return "window";
  }
  return "";
}

}  // namespace

class FailingCalls::Device final : public platform::ISnmpConfig {
 public:
  Device(std::unique_ptr<platform::ISnmpConfig> device, FailingCalls& calls)
      : device_(std::move(device)), calls_(calls) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return SetBy(&platform::ISnmpConfig::Set, oid, type, value);
  }
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return GetBy(&platform::ISnmpConfig::Get, oid, type, value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return SetBy(&platform::ISnmpConfig::SetSpecial, oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return GetBy(&platform::ISnmpConfig::GetSpecial, oid, type, value);
  }

 private:
  using Setter = ResultCode (platform::ISnmpConfig::*)(const WideString&, const WideString&, const WideString&);
  using Getter = ResultCode (platform::ISnmpConfig::*)(const WideString&, const WideString&,
                                                       std::optional<WideString>&);

  ResultCode SetBy(Setter set, const WideString& oid, const WideString& type, const WideString& value) {
    const std::string text = base::ToUtf8(value);
    if (calls_.Fails("set " + base::ToUtf8(oid) + " " + text)) return Failed(platform::kFailed);
    const ResultCode result = (device_.get()->*set)(oid, type, value);
    if (result >= 0) calls_.stored_[base::ToUtf8(oid)] = text;
    return result;
  }

  ResultCode GetBy(Getter get, const WideString& oid, const WideString& type, std::optional<WideString>& value) {
    if (!calls_.Fails("get " + base::ToUtf8(oid))) return (device_.get()->*get)(oid, type, value);
    value.reset();
    return Failed(calls_.failure_ == Failure::kNoText ? platform::kOk : platform::kFailed);
  }

  ResultCode Failed(ResultCode code) const {
    if (calls_.failure_ == Failure::kException) throw std::runtime_error("the device is gone");
    return code;
  }

  std::unique_ptr<platform::ISnmpConfig> device_;
  FailingCalls& calls_;
};

bool FailingCalls::Fails(std::string call) {
  calls_.push_back(std::move(call));
  return decide_(calls_.size());
}

void FailingCalls::Install(platform::host::Environment& environment) {
  environment.connectDevice = [this, connect = std::move(environment.connectDevice)] {
    return Fails("connect") ? nullptr : std::make_unique<Device>(connect(), *this);
  };
  environment.tableValue = [this, look = std::move(environment.tableValue)](
                               const WideString& server, const WideString& table, const WideString& key) {
    return Fails("table " + base::ToUtf8(table) + " " + base::ToUtf8(key)) ? platform::TableAnswer{}
                                                                           : look(server, table, key);
  };
  environment.refuses = [this](platform::host::Use use) {
    if (use == platform::host::Use::kMakeWindow && !windowsToo) return false;
    return Fails(NameOf(use) + (" " + std::to_string(++uses_[use])));
  };
}

}  // namespace tests
