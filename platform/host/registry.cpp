#include "platform/registry.h"

#include "platform/host/environment.h"
#include "platform/host/registry_tree.h"

#include <utility>
#include <vector>

namespace platform {

// The tree is held for as long as the key is open, so that the pointers into it stay good.
struct RegistryKey::State {
  std::shared_ptr<const host::RegistryTree> tree;
  std::vector<const WideString*> subkeys;
  std::vector<const RegistryValue*> values;
};

RegistryKey::RegistryKey(std::unique_ptr<State> state) : state_(std::move(state)) {}
RegistryKey::RegistryKey(RegistryKey&&) noexcept = default;
RegistryKey& RegistryKey::operator=(RegistryKey&&) noexcept = default;
RegistryKey::~RegistryKey() = default;

std::optional<RegistryKey> RegistryKey::Open(RegistryRoot root, WideStringView subkeyPath, bool create,
                                             std::uint32_t access) {
  auto state = std::make_unique<State>();
  // A key that was opened without access rights lists nothing, so whether it was made now makes no difference.
  if (create) return RegistryKey(std::move(state));
  state->tree = host::CurrentEnvironment().registry;
  const host::RegistryTreeKey* key = state->tree ? state->tree->Find(root, subkeyPath) : nullptr;
  if (key == nullptr) {
    // The predefined keys always exist.
    const bool predefined = root >= host::RegistryTree::kClassesRoot && root <= host::RegistryTree::kUsers;
    if (!predefined || !subkeyPath.empty()) return std::nullopt;
    return RegistryKey(std::move(state));
  }
  if (key->denied || access == 0) return std::nullopt;
  for (const auto& [name, subkey] : key->subkeys) state->subkeys.push_back(&name);
  for (const auto& [name, value] : key->values) state->values.push_back(&value);
  return RegistryKey(std::move(state));
}

std::optional<WideString> RegistryKey::Subkey(std::uint32_t index, std::size_t nameCapacity) const {
  if (index >= state_->subkeys.size()) return std::nullopt;
  const WideString& name = *state_->subkeys[index];
  if (name.size() >= nameCapacity) return std::nullopt;
  return name;
}

std::optional<RegistryValue> RegistryKey::Value(std::uint32_t index, std::size_t nameCapacity,
                                                std::size_t dataCapacity) const {
  if (index >= state_->values.size()) return std::nullopt;
  const RegistryValue& value = *state_->values[index];
  if (value.name.size() >= nameCapacity || value.data.size() > dataCapacity) return std::nullopt;
  return value;
}

}  // namespace platform
