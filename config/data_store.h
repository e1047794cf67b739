// The configuration tree: every key of a registry subtree or an XML document by its full path, such as
// "HKEY_LOCAL_MACHINE\SOFTWARE\Menu\Network". It is built at once and then only read, from any thread.
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"
#include "config/xml_document.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace config {

class PDataStore {
 public:
  static constexpr std::uint32_t kTopLevelOnly = 1;
  static constexpr std::uint32_t kWholeTree = 9999;

  // Reads the root (depth 0) and the keys below it as far as maxDepth: from the document, or from the registry when
  // there is none. The tree shares the document's text but not the document, which may go at once. A key that the
  // source does not hold is in the tree too, without values.
  PDataStore(WideStringView rootPath, std::shared_ptr<const XmlDocument> document,
             std::span<const WideString> adapterNames, std::uint32_t maxDepth);
  ~PDataStore();
  PDataStore(const PDataStore&) = delete;
  PDataStore& operator=(const PDataStore&) = delete;

  // Null when no key has exactly this path. Keys live as long as the tree.
  const ConfigKey* Find(WideStringView path) const;
  // The same for a path that goes on from a key of this tree.
  const ConfigKey* FindBelow(const ConfigKey& key, WideStringView path) const;

  // How many keys were loaded; 0: the tree is of no use.
  std::size_t Count() const;

  // Takes over a list of network adapter names; always answers 1.
  int InitNetworkAdapterTable(std::span<const WideString> adapterNames);
  std::span<const WideString> NetworkAdapters() const { return networkAdapters_; }

 private:
  struct Storage;

  void Build(WideStringView rootPath, const XmlDocument* document, std::uint32_t maxDepth);

  std::vector<WideString> networkAdapters_;
  std::unique_ptr<Storage> storage_;
};

}  // namespace config
