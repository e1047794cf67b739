// Paths of names, "A\B\C", each held once: as its last name below the path before it. So a path costs no more than its
// last name however deep it is.
//
// A path is what stands between its backslashes: "A\" is the empty name below "A", and a name has no backslash in it.
#pragma once

#include "base/wide_string.h"
#include "config/block_list.h"
#include "config/config_key.h"

#include <cstdint>
#include <vector>

namespace config {

struct PathNode {
  const PathNode* parent = nullptr;  // null: the node above all first names, which is no path itself
  WideStringView name;
  std::uint64_t hash = 0;          // of the whole path
  std::uint32_t firstElement = 0;  // in a document, whose `name` attributes spell this path
  bool hasElement = false;
  bool isExpanded = false;  // the children of all its elements are among the nodes below
  bool isKey = false;       // a key of the tree; else only a step on the way to one
  ConfigKey key;
};

// The names down to a node, put together.
WideString PathOf(const PathNode& node);

// The node whose element a key is read from; null when the document has none. A path that ends with a backslash is read
// where it stands without it.
const PathNode* ElementSource(const PathNode& node);

// Calls step(name) for each name of a path.
template <typename Step>
void ForEachName(WideStringView path, Step step) {
  for (;;) {
    const std::size_t end = path.find(u'\\');
    step(path.substr(0, end));
    if (end == WideStringView::npos) return;
    path.remove_prefix(end + 1);
  }
}

class PathTable {
 public:
  PathTable();

  PathNode& Top() { return nodes_[0]; }

  // The path of `parent` and one name more, made when it is not there. The name must live as long as the table.
  PathNode& Child(PathNode& parent, WideStringView name);

  // Null when there is no such path.
  const PathNode* Find(WideStringView path) const;
  // The same for a path that goes on from a node.
  const PathNode* FindBelow(const PathNode& from, WideStringView path) const;

 private:
  struct Slot {
    std::uint32_t node = 0;  // 0: free
    std::uint32_t hash = 0;  // the lower half
  };

  // What is needed to find a node: the hash of its path, and the slot where it is or would be.
  struct Place {
    std::uint64_t hash;
    std::size_t slot;
  };
  Place PlaceOf(const PathNode& parent, WideStringView name) const;
  std::size_t FirstSlot(std::uint64_t hash) const { return static_cast<std::size_t>(hash >> shift_); }
  void Grow();

  BlockList<PathNode> nodes_;
  std::vector<Slot> slots_;  // a power of two of them, at most half of them in use
  int shift_ = 0;            // of a hash, to get at a slot
};

}  // namespace config
