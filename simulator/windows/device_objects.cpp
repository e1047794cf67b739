#include "simulator/windows/device_objects.h"

#include "base/utf8.h"
#include "simulator/simulated_device.h"
#include "simulator/windows/com_object.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace simulator {
namespace {

using platform::win32::ComPointer;
using platform::win32::FromApi;
using platform::win32::ToApi;

std::filesystem::path FromEnvironment(const wchar_t* variable) {
  const wchar_t* text = _wgetenv(variable);
  return text != nullptr ? text : L"";
}

// Whole lines in one write each, so that whoever reads the file meanwhile sees none in part.
void AppendToLog(LineLog& lines) {
  const std::filesystem::path file = FromEnvironment(L"KEL_DEVICE_LOG");
  std::string text;
  for (const std::string& line : lines.Take()) text += line + "\n";
  if (file.empty() || text.empty()) return;
  const auto close = [](std::FILE* opened) { std::fclose(opened); };
  const std::unique_ptr<std::FILE, decltype(close)> log(_wfopen(file.c_str(), L"ab"));
  if (log) std::fwrite(text.data(), 1, text.size(), log.get());
}

WideString TextOf(BSTR text) { return text == nullptr ? WideString() : WideString(FromApi(text), SysStringLen(text)); }

BSTR Allocate(const WideString& text) { return SysAllocStringLen(ToApi(text.data()), static_cast<UINT>(text.size())); }

using platform::win32::kSnmpConfigInterface;
using platform::win32::SnmpConfigInterface;

class SnmpConfig final : public ComObject<SnmpConfigInterface, kSnmpConfigInterface> {
 public:
  explicit SnmpConfig(std::unique_ptr<DeviceStore> store)
      : store_(std::move(store)),
        device_(MakeSimulatedDevice(*store_, effects_, [](int milliseconds) { Sleep(DWORD(milliseconds)); })) {}

  HRESULT STDMETHODCALLTYPE Set(BSTR oid, BSTR type, BSTR value) override {
    return SetBy(&platform::ISnmpConfig::Set, oid, type, value);
  }
  HRESULT STDMETHODCALLTYPE Get(BSTR oid, BSTR type, BSTR* value) override {
    return GetBy(&platform::ISnmpConfig::Get, oid, type, value);
  }
  HRESULT STDMETHODCALLTYPE SetSpecial(BSTR oid, BSTR type, BSTR value) override {
    return SetBy(&platform::ISnmpConfig::SetSpecial, oid, type, value);
  }
  HRESULT STDMETHODCALLTYPE GetSpecial(BSTR oid, BSTR type, BSTR* value) override {
    return GetBy(&platform::ISnmpConfig::GetSpecial, oid, type, value);
  }

 private:
  template <typename Operation>
  HRESULT SetBy(Operation operation, BSTR oid, BSTR type, BSTR value) {
    const HRESULT code = ((*device_).*operation)(TextOf(oid), TextOf(type), TextOf(value));
    AppendToLog(effects_);
    return code;
  }

  template <typename Operation>
  HRESULT GetBy(Operation operation, BSTR oid, BSTR type, BSTR* value) {
    if (value == nullptr) return E_POINTER;
    std::optional<WideString> text;
    const HRESULT code = ((*device_).*operation)(TextOf(oid), TextOf(type), text);
    AppendToLog(effects_);
    *value = text ? Allocate(*text) : nullptr;
    return code;
  }

  LineLog effects_;
  std::unique_ptr<DeviceStore> store_;
  std::unique_ptr<platform::ISnmpConfig> device_;
};

using platform::win32::ConfigPropertyInterface;
using platform::win32::kConfigPropertyInterface;

class ConfigProperty final : public ComObject<ConfigPropertyInterface, kConfigPropertyInterface> {
 public:
  explicit ConfigProperty(PropertyTables tables) : tables_(std::move(tables)) {}

  HRESULT STDMETHODCALLTYPE GetTableValue(const wchar_t* table, const wchar_t* key, wchar_t** value) override {
    if (table == nullptr || key == nullptr || value == nullptr) return E_POINTER;
    *value = nullptr;
    LineLog effects;
    const auto answer = AnswerTableValue(tables_, effects, WideString(kPropertyServer), FromApi(table), FromApi(key));
    AppendToLog(effects);
    if (answer.code < 0) return answer.code;
    const std::size_t bytes = (answer.text.size() + 1) * sizeof(wchar_t);
    *value = static_cast<wchar_t*>(CoTaskMemAlloc(bytes));
    if (*value == nullptr) return E_OUTOFMEMORY;
    std::memcpy(*value, answer.text.c_str(), bytes);
    return answer.code;
  }

 private:
  PropertyTables tables_;
};

std::filesystem::path Storage() { return FromEnvironment(L"KEL_TERMINAL"); }

void Complain(const std::string& problem) { OutputDebugStringW(ToApi(base::FromUtf8(problem + "\r\n"))); }

}  // namespace

ComPointer<IUnknown> MakeSnmpConfig() {
  auto opened = DeviceStore::Open(Storage() / "device.txt");
  if (opened.store) return ComPointer<IUnknown>(std::make_unique<SnmpConfig>(std::move(opened.store)).release());
  Complain(opened.problem);
  return nullptr;
}

ComPointer<IUnknown> MakeConfigProperty() {
  PropertyTables tables;
  const std::string problem = tables.Read(Storage() / "tables.txt");
  if (problem.empty()) return ComPointer<IUnknown>(std::make_unique<ConfigProperty>(std::move(tables)).release());
  Complain(problem);
  return nullptr;
}

}  // namespace simulator
