// The walk that all trees are built by: level by level, so that every path is met first where it is least deep.
#pragma once

#include "config/path_table.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace config {

class TreeWalk {
 public:
  // Makes a node a key of the next level, unless it is one already.
  void Enter(PathNode& node) {
    if (node.isKey) return;
    node.isKey = true;
    nextLevel_.push_back(&node);
    ++count_;
  }

  // Calls read(node, hasChildren) for each key; it enters the keys below when there is to be one more level.
  template <typename Read>
  void Run(std::uint32_t maxDepth, Read read) {
    for (std::uint32_t depth = 0; !nextLevel_.empty(); ++depth) {
      level_.clear();
      std::swap(level_, nextLevel_);
      for (PathNode* const node : level_) read(*node, depth < maxDepth);
    }
  }

  std::size_t Count() const { return count_; }

 private:
  std::vector<PathNode*> level_;
  std::vector<PathNode*> nextLevel_;
  std::size_t count_ = 0;
};

}  // namespace config
