// A configuration tree from a few words: keys by name below "Root", each with its values.
#pragma once

#include "base/wide_string.h"
#include "config/data_store.h"
#include "tests/support/trees.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace tests {

using KeyValues = std::vector<std::pair<WideString, WideString>>;

// Values must not need escapes in XML.
class ConfigTree {
 public:
  explicit ConfigTree(const std::vector<std::pair<WideString, KeyValues>>& keys) {
    WideString text = u"<GROUP name=\"Root\">";
    for (const auto& [name, values] : keys) {
      text += u"<GROUP name=\"" + name + u"\">";
      for (const auto& [valueName, value] : values) text += u"<" + valueName + u">" + value + u"</" + valueName + u">";
      text += u"</GROUP>";
    }
    text += u"</GROUP>";
    tree_ = TreeOf(text, config::PDataStore::kWholeTree, u"Root");
    EXPECT_NE(nullptr, tree_);
  }

  const config::ConfigKey* Key(WideStringView name) const { return tree_->Find(u"Root\\" + WideString(name)); }

 private:
  std::shared_ptr<const config::PDataStore> tree_;
};

}  // namespace tests
