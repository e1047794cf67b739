// Trees of short documents for tests.
#pragma once

#include "config/data_store.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace config {

inline std::shared_ptr<const PDataStore> XmlTree(WideStringView text, WideStringView root,
                                                 std::uint32_t maxDepth = PDataStore::kWholeTree) {
  auto document = std::make_shared<XmlDocument>();
  EXPECT_TRUE(document->SetDocument(text));
  return std::make_shared<const PDataStore>(root, document, std::span<const WideString>(), maxDepth);
}

using Names = std::vector<WideString>;

inline Names SubkeysOf(const PDataStore& tree, WideStringView path) {
  Names names;
  const ConfigKey* const key = tree.Find(path);
  if (key == nullptr) return {u"(no key)"};
  for (const WideStringView name : key->Subkeys()) names.emplace_back(name);
  return names;
}

}  // namespace config
