// The COM server for the simulated device: an in-process library that regsvr32 registers, for all people of the machine
// or, with /n /i:user, for who asks alone, which takes no rights.
#include "simulator/windows/com_object.h"
#include "simulator/windows/device_objects.h"

#include <olectl.h>

#include <string>
#include <string_view>

namespace simulator {
namespace {

using platform::win32::ComPointer;
using platform::win32::ToApi;

struct ServedClass {
  const CLSID& id;
  const wchar_t* name;
  const wchar_t* progId;  // null: none
  ComPointer<IUnknown> (*make)();
};

const ServedClass kClasses[] = {
    {platform::win32::kSnmpConfigClass, L"Simulated SNMP configuration", nullptr, MakeSnmpConfig},
    {kConfigPropertyClass, L"Simulated configuration properties", L"Valtorix.ConfigProperty", MakeConfigProperty},
};

class Factory final : public ComObject<IClassFactory, IID_IClassFactory> {
 public:
  explicit Factory(const ServedClass& served) : served_(served) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    const auto object = served_.make();
    return object ? object->QueryInterface(id, out) : E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    liveObjects += lock ? 1 : -1;
    return S_OK;
  }

 private:
  const ServedClass& served_;
};

std::wstring TextOf(const CLSID& id) {
  constexpr int kLength = 39;
  wchar_t text[kLength] = {};
  StringFromGUID2(id, text, kLength);
  return text;
}

std::wstring ThisLibrary() {
  HMODULE module = nullptr;
  constexpr DWORD kByAddress = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  GetModuleHandleExW(kByAddress, reinterpret_cast<const wchar_t*>(&ThisLibrary), &module);
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), MAX_PATH));
  return path;
}

// Where classes are registered.
struct Classes {
  HKEY root;
  const wchar_t* path;  // ends in a backslash
};
const Classes kOfTheMachine = {HKEY_LOCAL_MACHINE, L"Software\\Classes\\"};
const Classes kOfTheUser = {HKEY_CURRENT_USER, L"Software\\Classes\\"};

// A key with a text; its default one when `name` is null.
bool Write(const Classes& classes, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return RegSetKeyValueW(classes.root, (classes.path + key).c_str(), name, REG_SZ, text.c_str(), bytes) ==
         ERROR_SUCCESS;
}

bool Register(const Classes& classes, const ServedClass& served) {
  const std::wstring classId = TextOf(served.id);
  const std::wstring key = L"CLSID\\" + classId;
  // The utility's COM is multithreaded, so a server for apartments alone could not be called directly.
  bool done = Write(classes, key, nullptr, served.name) &&
              Write(classes, key + L"\\InprocServer32", nullptr, ThisLibrary()) &&
              Write(classes, key + L"\\InprocServer32", L"ThreadingModel", L"Both");
  if (served.progId == nullptr) return done;
  done = done && Write(classes, key + L"\\ProgID", nullptr, served.progId);
  return done && Write(classes, served.progId, nullptr, served.name) &&
         Write(classes, std::wstring(served.progId) + L"\\CLSID", nullptr, classId);
}

void Unregister(const Classes& classes, const std::wstring& key) {
  RegDeleteTreeW(classes.root, (classes.path + key).c_str());
}

HRESULT UnregisterAll(const Classes& classes) {
  for (const ServedClass& served : kClasses) {
    Unregister(classes, L"CLSID\\" + TextOf(served.id));
    if (served.progId != nullptr) Unregister(classes, served.progId);
  }
  return S_OK;
}

HRESULT RegisterAll(const Classes& classes) {
  for (const ServedClass& served : kClasses) {
    if (Register(classes, served)) continue;
    UnregisterAll(classes);
    return SELFREG_E_CLASS;
  }
  return S_OK;
}

// Whether classes of the user's own are found. Wine looks at those of the machine alone, and lets everybody write
// there.
bool FindsClassesOfTheUser() {
  const std::wstring probe = L"KelProbe." + std::to_wstring(GetCurrentProcessId());
  if (!Write(kOfTheUser, probe, nullptr, L"probe")) return false;
  HKEY key = nullptr;
  const bool found = RegOpenKeyExW(HKEY_CLASSES_ROOT, probe.c_str(), 0, KEY_QUERY_VALUE, &key) == ERROR_SUCCESS;
  if (found) RegCloseKey(key);
  Unregister(kOfTheUser, probe);
  return found;
}

}  // namespace
}  // namespace simulator

extern "C" {

HRESULT WINAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** out) {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  for (const auto& served : simulator::kClasses) {
    if (!IsEqualCLSID(served.id, classId)) continue;
    const platform::win32::ComPointer<IUnknown> factory(std::make_unique<simulator::Factory>(served).release());
    return factory->QueryInterface(interfaceId, out);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT WINAPI DllCanUnloadNow() { return simulator::liveObjects == 0 ? S_OK : S_FALSE; }

HRESULT WINAPI DllUnregisterServer() { return simulator::UnregisterAll(simulator::kOfTheMachine); }

HRESULT WINAPI DllRegisterServer() { return simulator::RegisterAll(simulator::kOfTheMachine); }

HRESULT WINAPI DllInstall(BOOL install, PCWSTR commandLine) {
  if (commandLine == nullptr || std::wstring_view(commandLine) != L"user") return E_INVALIDARG;
  const auto& classes = simulator::FindsClassesOfTheUser() ? simulator::kOfTheUser : simulator::kOfTheMachine;
  return install ? simulator::RegisterAll(classes) : simulator::UnregisterAll(classes);
}
}
