#include "config/registry_key_reader.h"

#include <algorithm>
#include <utility>

namespace config {
namespace {

constexpr std::size_t kSubkeyNameCapacity = 1024;
constexpr std::size_t kValueNameCapacity = 2048;
constexpr std::size_t kDataCapacity = 4096;

constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kExpandableText = 2;
constexpr std::uint32_t kTextList = 7;

constexpr struct {
  WideStringView name;
  platform::RegistryRoot root;
} kRootKeys[] = {
    {u"HKEY_CLASSES_ROOT", 0x80000000},
    {u"HKEY_CURRENT_USER", 0x80000001},
    {u"HKEY_LOCAL_MACHINE", 0x80000002},
    {u"HKEY_USERS", 0x80000003},
};

// Calls visit(value) for each value in order, until it returns false or a value cannot be read.
template <typename Visit>
void ForEachValue(const platform::RegistryKey& key, Visit visit) {
  for (std::uint32_t i = 0;; ++i) {
    const std::optional<platform::RegistryValue> value = key.Value(i, kValueNameCapacity, kDataCapacity);
    if (!value || !visit(*value)) return;
  }
}

// The units of stored bytes; half a unit at the end is completed with a zero.
WideString Units(const std::string& data) {
  WideString units((data.size() + 1) / 2, u'\0');
  for (std::size_t i = 0; i < data.size(); ++i) {
    const auto byte = static_cast<unsigned char>(data[i]);
    units[i / 2] = static_cast<char16_t>(units[i / 2] | (i % 2 == 0 ? byte : byte << 8));
  }
  return units;
}

WideString TextOf(const std::string& data) {
  WideString text = Units(data);
  text.resize(std::min(text.find(u'\0'), text.size()));
  return text;
}

// Texts each with a zero at its end, up to the empty one or the end of the data.
std::vector<WideString> TextsOf(const std::string& data) {
  std::vector<WideString> texts;
  const WideString units = Units(data);
  for (std::size_t at = 0; at < units.size() && units[at] != u'\0';) {
    const std::size_t end = std::min(units.find(u'\0', at), units.size());
    texts.push_back(units.substr(at, end - at));
    at = end + 1;
  }
  return texts;
}

bool IsText(std::uint32_t type) { return type == kText || type == kExpandableText; }

WideString Joined(const std::vector<WideString>& texts) {
  WideString joined;
  for (const WideString& text : texts) {
    if (!joined.empty()) joined.push_back(u' ');
    joined += text;
  }
  return joined;
}

}  // namespace

std::optional<platform::RegistryKey> OpenKey(WideStringView path, bool create, std::uint32_t access) {
  const std::size_t nameEnd = std::min(path.find(u'\\'), path.size());
  for (const auto& rootKey : kRootKeys) {
    if (rootKey.name != path.substr(0, nameEnd)) continue;
    const WideStringView subkeyPath = nameEnd == path.size() ? WideStringView() : path.substr(nameEnd + 1);
    return platform::RegistryKey::Open(rootKey.root, subkeyPath, create, access);
  }
  return std::nullopt;
}

RegistryKeyReader::RegistryKeyReader(WideStringView path) {
  const std::optional<platform::RegistryKey> key = OpenKey(path, false, platform::kKeyAllAccess);
  if (!key) return;
  for (std::uint32_t i = 0;; ++i) {
    std::optional<WideString> name = key->Subkey(i, kSubkeyNameCapacity);
    if (!name) break;
    subkeys.push_back(std::move(*name));
  }
  ForEachValue(*key, [this](const platform::RegistryValue& value) {
    if (IsText(value.type)) {
      values[value.name] = TextOf(value.data);
    } else if (value.type == kTextList) {
      if (!lists) lists = std::make_unique<Lists>();
      (*lists)[value.name] = TextsOf(value.data);
    }
    return true;
  });
}

std::optional<WideString> ReadValueAsText(WideStringView keyPath, WideStringView valueName) {
  const std::optional<platform::RegistryKey> key = OpenKey(keyPath, false, platform::kKeyAllAccess);
  if (!key) return std::nullopt;
  std::optional<WideString> found;
  ForEachValue(*key, [&](const platform::RegistryValue& value) {
    const bool wanted = IsText(value.type) || value.type == kTextList;
    if (!wanted || !base::EqualsIgnoringCase(value.name, valueName)) return true;
    found = value.type == kTextList ? Joined(TextsOf(value.data)) : TextOf(value.data);
    return false;
  });
  return found;
}

}  // namespace config
