#include "app/key_tree.h"

#include "platform/debug.h"

#include <new>
#include <utility>

namespace app {
namespace {

constexpr int kRebuildTimeoutMs = 10'000;

}  // namespace

KeyTree::KeyTree() : created_(u"PDataStoreCreatedEvent", true), inUse_(u"PDataStoreInUseEvent", true) {}

std::shared_ptr<const config::PDataStore> KeyTree::Build(std::uint32_t maxDepth) const {
  const WideString adapters[] = {u"NE2000"};
  return std::make_shared<const config::PDataStore>(source_.path, source_.document, adapters, maxDepth);
}

bool KeyTree::BuildFirst() {
  tree_ = Build(config::PDataStore::kTopLevelOnly);
  return tree_->Count() > 0;
}

bool KeyTree::Rebuild() {
  created_.Reset();
  std::shared_ptr<const config::PDataStore> replacement;
  try {
    replacement = Build(config::PDataStore::kWholeTree);
  } catch (const std::bad_alloc&) {
    platform::DebugOutput(u"EXCEPTION: KeyTree::Rebuild()\r\n");
  }
  const bool holdsKeys = replacement && replacement->Count() > 0;
  inUse_.Wait();
  if (replacement) {
    const std::lock_guard lock(mutex_);
    tree_.swap(replacement);
  }
  replacement.reset();
  created_.Set();
  source_.document.reset();
  return holdsKeys;
}

std::shared_ptr<const config::PDataStore> KeyTree::Current() const {
  const std::lock_guard lock(mutex_);
  return tree_;
}

KeyTree::Reader::Reader(KeyTree& tree) : tree_(tree) {
  tree_.created_.Wait(kRebuildTimeoutMs);
  tree_.inUse_.Reset();
}

KeyTree::Reader::~Reader() { tree_.inUse_.Set(); }

}  // namespace app
