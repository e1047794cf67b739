#include "app/key_tree.h"

#include "platform/debug.h"

#include <exception>
#include <utility>

namespace app {
namespace {

constexpr int kRebuildTimeoutMs = 10'000;

}  // namespace

KeyTree::KeyTree() : created_(u"PDataStoreCreatedEvent", true), inUse_(u"PDataStoreInUseEvent", true) {}

// Null when there was no memory for it. A tree that holds nothing is one whose building failed: the root is a key of
// every other.
std::shared_ptr<const config::PDataStore> KeyTree::Build(std::uint32_t maxDepth) const {
  try {
    const WideString adapters[] = {u"NE2000"};
    auto tree = std::make_shared<const config::PDataStore>(source_.path, source_.document, adapters, maxDepth);
    if (tree->Count() > 0) return tree;
  } catch (const std::exception&) {
    platform::DebugOutput(u"EXCEPTION: KeyTree::Build()\r\n");
  }
  return nullptr;
}

bool KeyTree::BuildFirst() {
  tree_ = Build(config::PDataStore::kTopLevelOnly);
  return tree_ != nullptr;
}

bool KeyTree::Rebuild() {
  created_.Reset();
  std::shared_ptr<const config::PDataStore> replacement = Build(config::PDataStore::kWholeTree);
  const bool built = replacement != nullptr;
  inUse_.Wait();
  if (built) {
    const std::lock_guard lock(mutex_);
    tree_.swap(replacement);
  }
  replacement.reset();
  created_.Set();
  source_.document.reset();
  return built;
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
