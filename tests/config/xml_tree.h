// Trees of short documents for tests.
#pragma once

#include "config/data_store.h"
#include "tests/support/trees.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace config {

inline std::shared_ptr<const PDataStore> XmlTree(WideStringView text, WideStringView root,
                                                 std::uint32_t maxDepth = PDataStore::kWholeTree) {
  auto tree = tests::TreeOf(text, maxDepth, root);
  EXPECT_NE(nullptr, tree);
  return tree;
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
