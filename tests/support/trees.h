// Key trees from XML text, for tests of everything above the configuration.
#pragma once

#include "base/utf8.h"
#include "config/data_store.h"
#include "config/xml_document.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace tests {

// The root GROUP of `xml` is named `root`. Null when the text is not well formed.
inline std::shared_ptr<const config::PDataStore> TreeOf(WideStringView xml,
                                                        std::uint32_t maxDepth = config::PDataStore::kWholeTree,
                                                        WideStringView root = u"R") {
  auto document = std::make_shared<config::XmlDocument>();
  if (!document->SetDocument(xml)) return nullptr;
  return std::make_shared<const config::PDataStore>(root, document, std::span<const WideString>(), maxDepth);
}

inline std::shared_ptr<const config::PDataStore> TreeOf(std::string_view xml,
                                                        std::uint32_t maxDepth = config::PDataStore::kWholeTree,
                                                        WideStringView root = u"R") {
  return TreeOf(base::FromUtf8(xml), maxDepth, root);
}

}  // namespace tests
