// The key tree in force and its replacement by the full one, which a worker thread builds while the first menu is
// already on the screen.
#pragma once

#include "config/config_source.h"
#include "config/data_store.h"
#include "platform/events.h"

#include <memory>
#include <mutex>

namespace app {

class KeyTree {
 public:
  KeyTree();

  // Where trees are built from.
  void SetSource(config::ConfigSource source) { source_ = std::move(source); }
  const WideString& RootPath() const { return source_.path; }

  // Builds the tree that the first menu needs. False when that failed; there is no tree then.
  bool BuildFirst();

  // A rebuild is about to start: readers wait for it from now on, or until it is called off.
  void AnnounceRebuild() { created_.Reset(); }
  void CallOffRebuild() { created_.Set(); }

  // Builds the full tree and puts it in the place of the first one, when no reader uses that. Runs on the worker
  // thread. Afterwards the document is gone. False when that failed, as for want of memory; the first one stays.
  bool Rebuild();

  // The tree in force. Whoever holds it may go on reading it after it has been replaced.
  std::shared_ptr<const config::PDataStore> Current() const;

  // Uses the tree: waits for a rebuild under way, 10 seconds at most, and holds up the next one while it lives.
  class Reader {
   public:
    explicit Reader(KeyTree& tree);
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

   private:
    KeyTree& tree_;
  };

 private:
  std::shared_ptr<const config::PDataStore> Build(std::uint32_t maxDepth) const;

  config::ConfigSource source_;
  platform::Event created_;
  platform::Event inUse_;
  mutable std::mutex mutex_;  // guards the pointer, which the two threads share
  std::shared_ptr<const config::PDataStore> tree_;
};

}  // namespace app
