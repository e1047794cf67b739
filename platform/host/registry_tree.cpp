#include "platform/host/registry_tree.h"

#include <utility>

namespace platform::host {
namespace {

constexpr std::uint32_t kTypeText = 1;
constexpr std::uint32_t kTypeNumber = 4;
constexpr std::uint32_t kTypeTextList = 7;

// Cuts the first component off a path; empty components are passed over, as the registry does at the ends.
WideStringView NextComponent(WideStringView& path) {
  WideStringView component;
  while (component.empty() && !path.empty()) {
    const std::size_t end = path.find(u'\\');
    component = path.substr(0, end);
    path = end == WideStringView::npos ? WideStringView{} : path.substr(end + 1);
  }
  return component;
}

}  // namespace

std::string RegistryBytes(WideStringView text) {
  std::string bytes;
  bytes.reserve(text.size() * 2);
  for (const char16_t unit : text) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
  }
  return bytes;
}

const RegistryTreeKey* RegistryTree::Find(RegistryRoot root, WideStringView path) const {
  const auto start = roots_.find(root);
  if (start == roots_.end()) return nullptr;
  const RegistryTreeKey* key = &start->second;
  for (WideStringView name = NextComponent(path); !name.empty(); name = NextComponent(path)) {
    const auto child = key->subkeys.find(name);
    if (child == key->subkeys.end()) return nullptr;
    key = child->second;
  }
  return key;
}

RegistryTreeKey& RegistryTree::Add(RegistryRoot root, WideStringView path) {
  RegistryTreeKey* key = &roots_[root];
  for (WideStringView name = NextComponent(path); !name.empty(); name = NextComponent(path)) {
    auto child = key->subkeys.find(name);
    if (child == key->subkeys.end()) {
      keys_.emplace_back().name = name;
      child = key->subkeys.emplace(WideString(name), &keys_.back()).first;
    }
    key = child->second;
  }
  return *key;
}

void RegistryTree::Remove(RegistryRoot root, WideStringView path) {
  const auto start = roots_.find(root);
  if (start == roots_.end()) return;
  RegistryTreeKey* parent = nullptr;
  RegistryTreeKey* key = &start->second;
  for (WideStringView name = NextComponent(path); !name.empty(); name = NextComponent(path)) {
    const auto child = key->subkeys.find(name);
    if (child == key->subkeys.end()) return;
    parent = std::exchange(key, child->second);
  }
  // What hung below stays in keys_ until the tree goes; nothing leads there any more.
  if (parent != nullptr) {
    parent->subkeys.erase(key->name);
  } else {
    key->subkeys.clear();
    key->values.clear();
  }
}

void RegistryTree::SetText(RegistryTreeKey& key, WideStringView name, WideStringView text) {
  SetBytes(key, name, kTypeText, RegistryBytes(text) + std::string(2, '\0'));
}

void RegistryTree::SetTextList(RegistryTreeKey& key, WideStringView name, const std::vector<WideString>& texts) {
  std::string bytes;
  for (const WideString& text : texts) bytes += RegistryBytes(text) + std::string(2, '\0');
  SetBytes(key, name, kTypeTextList, bytes + std::string(2, '\0'));
}

void RegistryTree::SetNumber(RegistryTreeKey& key, WideStringView name, std::uint32_t number) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<char>((number >> shift) & 0xFF));
  SetBytes(key, name, kTypeNumber, bytes);
}

void RegistryTree::SetBytes(RegistryTreeKey& key, WideStringView name, std::uint32_t type, std::string bytes) {
  const auto place = key.values.find(name);
  if (place != key.values.end()) {
    place->second.type = type;
    place->second.data = std::move(bytes);
  } else {
    key.values.emplace(WideString(name), RegistryValue{WideString(name), type, std::move(bytes)});
  }
}

}  // namespace platform::host
