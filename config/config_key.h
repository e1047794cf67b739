// One key of the configuration: named texts and the names of the keys below it.
#pragma once

#include "base/string_table.h"
#include "base/wide_string.h"

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace config {

struct PathNode;

struct NamedText {
  WideStringView name;
  WideStringView text;
};

// All views stay valid as long as the tree that the key belongs to.
class ConfigKey {
 public:
  // Multi-string values by name; only a registry has them.
  using Lists = std::map<WideString, std::vector<WideString>, std::less<>>;

  // The path under which the tree has the key. It is put together anew each time: held with every key, the paths of
  // deep menus would need far more room than the menus themselves.
  WideString FullPath() const;
  // The same of a key that was read from the registry; empty for a key of an XML document.
  WideString Path() const { return fromRegistry_ ? FullPath() : WideString(); }

  // Its path is the other's and one name more. Both are keys of one tree.
  bool IsChildOf(const ConfigKey& parent) const;

  // The element of the document's index that the key was read from; 0: none, as of every key from the registry.
  std::uint32_t Element() const;

  // A value's text, empty when the key has no value of exactly that name.
  WideStringView Value(WideStringView name) const;
  // The same with a name from the string table; empty too when the table has no such text.
  WideStringView Value(TextId nameId) const;
  // Each name once, in no particular order.
  std::span<const NamedText> Values() const { return {values_, valueCount_}; }

  // The names of the keys below, in the order of the source; a "Descendent" comes last and may be a path itself.
  std::span<const WideStringView> Subkeys() const { return {subkeys_, subkeyCount_}; }

  // Null when the key has no list of exactly that name.
  const std::vector<WideString>* List(WideStringView name) const;

  // How keys with more values than a quick look finds are ordered.
  static constexpr std::size_t kManyValues = 16;
  static bool NameLess(const NamedText& a, const NamedText& b) { return a.name < b.name; }

 private:
  friend class KeyWriter;
  friend class PathTable;
  friend class PDataStore;

  const NamedText* values_ = nullptr;  // ordered by NameLess() when there are many
  const WideStringView* subkeys_ = nullptr;
  std::uint32_t valueCount_ = 0;
  std::uint32_t subkeyCount_ = 0;
  bool fromRegistry_ = false;
  const PathNode* node_ = nullptr;  // which holds this key
  std::unique_ptr<const Lists> lists_;
};

}  // namespace config
