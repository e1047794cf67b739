// The simulated terminal's registry, held in memory. It is filled once and only read while the program runs.
#pragma once

#include "platform/registry.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace platform::host {

struct IgnoringCase {
  using is_transparent = void;
  bool operator()(WideStringView a, WideStringView b) const { return base::LessIgnoringCase(a, b); }
};

// A key of the registry; both maps are in the order in which the registry enumerates.
struct RegistryTreeKey {
  WideString name;
  std::map<WideString, RegistryTreeKey*, IgnoringCase> subkeys;
  std::map<WideString, RegistryValue, IgnoringCase> values;  // the default value has the empty name and comes first
  bool denied = false;                                       // cannot be opened
};

class RegistryTree {
 public:
  static constexpr RegistryRoot kClassesRoot = 0x80000000;
  static constexpr RegistryRoot kCurrentUser = 0x80000001;
  static constexpr RegistryRoot kLocalMachine = 0x80000002;
  static constexpr RegistryRoot kUsers = 0x80000003;
  static constexpr RegistryRoot kCurrentConfig = 0x80000005;

  RegistryTree() = default;
  RegistryTree(const RegistryTree&) = delete;
  RegistryTree& operator=(const RegistryTree&) = delete;

  // Names match without case; an empty path is the root itself. Null when there is no such key.
  const RegistryTreeKey* Find(RegistryRoot root, WideStringView path) const;

  // Makes the key and those above it where they are missing. The reference stays valid until the key is removed.
  RegistryTreeKey& Add(RegistryRoot root, WideStringView path);

  // Removes the key with all below it; a root is only emptied. A key that is not there is no error.
  void Remove(RegistryRoot root, WideStringView path);

  // Texts are stored with the zero that ends them. A value of the same name, whatever its case, is replaced.
  static void SetText(RegistryTreeKey& key, WideStringView name, WideStringView text);
  static void SetTextList(RegistryTreeKey& key, WideStringView name, const std::vector<WideString>& texts);
  static void SetNumber(RegistryTreeKey& key, WideStringView name, std::uint32_t number);
  static void SetBytes(RegistryTreeKey& key, WideStringView name, std::uint32_t type, std::string bytes);

 private:
  std::map<RegistryRoot, RegistryTreeKey> roots_;
  std::deque<RegistryTreeKey> keys_;  // owns all keys below the roots, so that no depth is walked to free them
};

// The bytes of a text as the registry stores it: UTF-16, little-endian.
std::string RegistryBytes(WideStringView text);

}  // namespace platform::host
