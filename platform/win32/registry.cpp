#include "platform/registry.h"

#include "platform/win32/windows_api.h"

#include <vector>

namespace platform {

struct RegistryKey::State {
  explicit State(HKEY key) : handle(key) {}
  ~State() { RegCloseKey(handle); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  HKEY handle;
};

RegistryKey::RegistryKey(std::unique_ptr<State> state) : state_(std::move(state)) {}
RegistryKey::RegistryKey(RegistryKey&&) noexcept = default;
RegistryKey& RegistryKey::operator=(RegistryKey&&) noexcept = default;
RegistryKey::~RegistryKey() = default;

std::optional<RegistryKey> RegistryKey::Open(RegistryRoot root, WideStringView subkeyPath, bool create,
                                             std::uint32_t access) {
  // The numbers of the roots are sign-extended in a handle.
  const auto rootKey = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
  const WideString path(subkeyPath);
  HKEY key = nullptr;
  const LONG result = create ? RegCreateKeyExW(rootKey, win32::ToApi(path), 0, nullptr, 0, 0, nullptr, &key, nullptr)
                             : RegOpenKeyExW(rootKey, win32::ToApi(path), 0, access, &key);
  if (result != ERROR_SUCCESS) return std::nullopt;
  return RegistryKey(std::make_unique<State>(key));
}

std::optional<WideString> RegistryKey::Subkey(std::uint32_t index, std::size_t nameCapacity) const {
  WideString name(nameCapacity, u'\0');
  auto length = static_cast<DWORD>(nameCapacity);
  if (RegEnumKeyExW(state_->handle, index, win32::ToApi(name), &length, nullptr, nullptr, nullptr, nullptr) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  name.resize(length);
  return name;
}

std::optional<RegistryValue> RegistryKey::Value(std::uint32_t index, std::size_t nameCapacity,
                                                std::size_t dataCapacity) const {
  RegistryValue value;
  value.name.resize(nameCapacity);
  value.data.resize(dataCapacity);
  auto nameLength = static_cast<DWORD>(nameCapacity);
  auto dataLength = static_cast<DWORD>(dataCapacity);
  DWORD type = 0;
  if (RegEnumValueW(state_->handle, index, win32::ToApi(value.name), &nameLength, nullptr, &type,
                    reinterpret_cast<BYTE*>(value.data.data()), &dataLength) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  value.name.resize(nameLength);
  value.data.resize(dataLength);
  value.type = type;
  return value;
}

}  // namespace platform
