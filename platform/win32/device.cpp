#include "platform/device.h"

#include "base/format.h"
#include "platform/debug.h"
#include "platform/win32/com.h"
#include "platform/win32/device_interfaces.h"

namespace platform {

namespace {

using win32::AutomationString;
using win32::ComPointer;
using win32::ReturnedAutomationString;
using win32::SnmpConfigInterface;

class SnmpConfig final : public ISnmpConfig {
 public:
  explicit SnmpConfig(ComPointer<SnmpConfigInterface> object) : object_(std::move(object)) {}

  ResultCode Set(const WideString& oid, const WideString& type, const WideString& value) override {
    return SetBy(&SnmpConfigInterface::Set, oid, type, value);
  }
  ResultCode Get(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return GetBy(&SnmpConfigInterface::Get, oid, type, value);
  }
  ResultCode SetSpecial(const WideString& oid, const WideString& type, const WideString& value) override {
    return SetBy(&SnmpConfigInterface::SetSpecial, oid, type, value);
  }
  ResultCode GetSpecial(const WideString& oid, const WideString& type, std::optional<WideString>& value) override {
    return GetBy(&SnmpConfigInterface::GetSpecial, oid, type, value);
  }

 private:
  using Setter = HRESULT (STDMETHODCALLTYPE SnmpConfigInterface::*)(BSTR, BSTR, BSTR);
  using Getter = HRESULT (STDMETHODCALLTYPE SnmpConfigInterface::*)(BSTR, BSTR, BSTR*);

  ResultCode SetBy(Setter operation, WideStringView oid, WideStringView type, WideStringView value) {
    const AutomationString oidText(oid);
    const AutomationString typeText(type);
    const AutomationString valueText(value);
    return ((*object_).*operation)(oidText.Get(), typeText.Get(), valueText.Get());
  }

  ResultCode GetBy(Getter operation, WideStringView oid, WideStringView type, std::optional<WideString>& value) {
    const AutomationString oidText(oid);
    const AutomationString typeText(type);
    ReturnedAutomationString answer;
    const ResultCode code = ((*object_).*operation)(oidText.Get(), typeText.Get(), answer.Out());
    value = answer.Text();
    return code;
  }

  ComPointer<SnmpConfigInterface> object_;
};

// The interface of an object, or null and the code of the call that failed.
template <typename Interface>
ComPointer<Interface> Create(const CLSID& classId, DWORD context, const IID& interfaceId, HRESULT& code) {
  void* object = nullptr;
  code = CoCreateInstance(classId, nullptr, context, interfaceId, &object);
  return ComPointer<Interface>(FAILED(code) ? nullptr : static_cast<Interface*>(object));
}

WideString TakeText(wchar_t* text) {
  if (text == nullptr) return {};
  WideString copy = win32::FromApi(text);
  CoTaskMemFree(text);
  return copy;
}

}  // namespace

std::unique_ptr<ISnmpConfig> ConnectSnmpConfig() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) return nullptr;
  HRESULT code = S_OK;
  const auto object = Create<IUnknown>(win32::kSnmpConfigClass, CLSCTX_ALL, IID_IUnknown, code);
  if (!object) return nullptr;
  void* snmp = nullptr;
  if (FAILED(object->QueryInterface(win32::kSnmpConfigInterface, &snmp))) return nullptr;
  return std::make_unique<SnmpConfig>(ComPointer<SnmpConfigInterface>(static_cast<SnmpConfigInterface*>(snmp)));
}

TableAnswer GetTableValue(const WideString& progId, const WideString& table, const WideString& key) {
  using Stage = TableAnswer::Stage;
  CLSID classId = {};
  // A table may be asked for before the device is.
  HRESULT code = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  if (FAILED(code)) {
    KernelDebugOutput(base::Format(u"CoInitializeEx returned 0x%08X.\r\n", static_cast<std::uint32_t>(code)));
    return {Stage::kCalled, code, {}};  // nothing more is to be said of it
  }
  code = CLSIDFromProgID(win32::ToApi(progId), &classId);
  if (FAILED(code)) return {Stage::kNoServer, code, {}};
  const auto server =
      Create<win32::ConfigPropertyInterface>(classId, CLSCTX_INPROC_SERVER, win32::kConfigPropertyInterface, code);
  if (!server) return {Stage::kNotCreated, code, {}};
  wchar_t* text = nullptr;
  code = server->GetTableValue(win32::ToApi(table), win32::ToApi(key), &text);
  if (FAILED(code)) return {Stage::kCalled, code, {}};
  return {Stage::kCalled, code, TakeText(text)};
}

}  // namespace platform
