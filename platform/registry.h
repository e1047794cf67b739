// Reading the registry.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace platform {

// A predefined root key by its handle number, such as 0x80000002 for HKEY_LOCAL_MACHINE.
using RegistryRoot = std::uint32_t;

inline constexpr std::uint32_t kKeyAllAccess = 0xF003F;

struct RegistryValue {
  WideString name;         // empty: the default value
  std::uint32_t type = 0;  // 1 text, 2 text with environment references, 4 number, 7 list of texts, ...
  std::string data;        // the bytes as stored; texts are UTF-16, little-endian, usually with a zero at the end
};

// An open key; closed with the object.
class RegistryKey {
 public:
  // An empty subkey path opens the root itself. Nothing when the key does not exist or access is denied. With
  // `create` the key is made if need be and opened without any access right.
  static std::optional<RegistryKey> Open(RegistryRoot root, WideStringView subkeyPath, bool create,
                                         std::uint32_t access);

  RegistryKey(RegistryKey&&) noexcept;
  RegistryKey& operator=(RegistryKey&&) noexcept;
  ~RegistryKey();

  // Subkeys and values are in alphabetical order without regard to case, the default value first. Nothing past the
  // last one, on any failure, and when a name has `nameCapacity` units or more or the data more than `dataCapacity`
  // bytes.
  std::optional<WideString> Subkey(std::uint32_t index, std::size_t nameCapacity) const;
  std::optional<RegistryValue> Value(std::uint32_t index, std::size_t nameCapacity, std::size_t dataCapacity) const;

 private:
  struct State;
  explicit RegistryKey(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace platform
