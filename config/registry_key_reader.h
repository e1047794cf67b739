// The contents of registry keys named by full paths, such as "HKEY_LOCAL_MACHINE\SOFTWARE\Menu".
#pragma once

#include "base/wide_string.h"
#include "platform/registry.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace config {

// Nothing when the path's first component is none of the four root keys, in exactly their case, or the key cannot be
// opened. The name of a root key alone opens that root.
std::optional<platform::RegistryKey> OpenKey(WideStringView path, bool create, std::uint32_t access);

// What a key holds when the object is made; a key that cannot be opened holds nothing. Reading ends before the first
// name that is too long, and before the first value of more than 4096 bytes.
class RegistryKeyReader {
 public:
  using Lists = std::map<WideString, std::vector<WideString>, std::less<>>;

  explicit RegistryKeyReader(WideStringView path);

  std::vector<WideString> subkeys;                       // in the registry's order
  std::map<WideString, WideString, std::less<>> values;  // the texts, with environment references as they stand
  std::unique_ptr<Lists> lists;                          // the lists of texts; null when there is none
};

// One value as text, its name in any case; the texts of a list are joined by blanks. Nothing when there is no such text
// or list.
std::optional<WideString> ReadValueAsText(WideStringView keyPath, WideStringView valueName);

}  // namespace config
