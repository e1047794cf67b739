#include "config/data_store.h"

#include "config/arena.h"
#include "config/path_table.h"
#include "config/shared_text.h"
#include "config/tree_builder.h"
#include "platform/debug.h"

#include <algorithm>
#include <exception>

namespace config {

struct PDataStore::Storage {
  SharedText text;  // what the views of an XML source point into
  Arena arena;
  PathTable paths;
  std::size_t count = 0;
};

namespace {

const ConfigKey* KeyOf(const PathNode* node) { return node != nullptr && node->isKey ? &node->key : nullptr; }

}  // namespace

PDataStore::PDataStore(WideStringView rootPath, std::shared_ptr<const XmlDocument> document,
                       std::span<const WideString> adapterNames, std::uint32_t maxDepth)
    : storage_(std::make_unique<Storage>()) {
  InitNetworkAdapterTable(adapterNames);
  try {
    Build(rootPath, document.get(), maxDepth);
  } catch (const std::exception&) {
    platform::DebugOutput(u"EXCEPTION: PDataStore::PDataStore()\r\n");
  }
}

void PDataStore::Build(WideStringView rootPath, const XmlDocument* document, std::uint32_t maxDepth) {
  if (document != nullptr) {
    storage_->text = document->Index().Text();
    storage_->count = BuildFromXml(document->Index(), rootPath, maxDepth, storage_->paths, storage_->arena);
  } else {
    storage_->count = BuildFromRegistry(rootPath, maxDepth, storage_->paths, storage_->arena);
  }
}

PDataStore::~PDataStore() = default;

const ConfigKey* PDataStore::Find(WideStringView path) const { return KeyOf(storage_->paths.Find(path)); }

const ConfigKey* PDataStore::FindBelow(const ConfigKey& key, WideStringView path) const {
  return KeyOf(storage_->paths.FindBelow(*key.node_, path));
}

std::size_t PDataStore::Count() const { return storage_->count; }

int PDataStore::InitNetworkAdapterTable(std::span<const WideString> adapterNames) {
  try {
    networkAdapters_.resize(adapterNames.size());
  } catch (...) {
    platform::DebugOutput(u"EXCEPTION_EXECUTE_HANDLER 5 PDataStore::InitNetworkAdapterTable()\r\n");
  }
  try {
    const std::size_t count = std::min(adapterNames.size(), networkAdapters_.size());
    std::copy_n(adapterNames.begin(), count, networkAdapters_.begin());
  } catch (...) {
    platform::DebugOutput(u"EXCEPTION_EXECUTE_HANDLER 2 pDataStore::InitNetworkAdapterTable()\r\n");
  }
  return 1;
}

}  // namespace config
