#include "config/path_table.h"

#include <algorithm>

namespace config {
namespace {

constexpr int kFirstSlotBits = 8;
constexpr std::uint64_t kSeed = 0x243F6A8885A308D3;
constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;

// Unit by unit, so that the hash of a path goes on where that of the path above it ended.
std::uint64_t Extend(std::uint64_t hash, char16_t unit) {
  hash = (hash ^ unit) * kFactor;
  return hash ^ (hash >> 32);
}

std::uint64_t Extend(std::uint64_t hash, WideStringView text) {
  for (const char16_t unit : text) hash = Extend(hash, unit);
  return hash;
}

// The upper bits, which choose the slot, depend on all others.
std::uint64_t Spread(std::uint64_t hash) { return hash * kFactor; }

bool IsPath(const PathNode* node, WideStringView path) {
  for (;;) {
    if (!path.ends_with(node->name)) return false;
    path.remove_suffix(node->name.size());
    node = node->parent;
    if (node->parent == nullptr) return path.empty();
    if (!path.ends_with(u'\\')) return false;
    path.remove_suffix(1);
  }
}

}  // namespace

WideString PathOf(const PathNode& node) {
  std::size_t length = node.name.size();
  for (const PathNode* n = node.parent; n->parent != nullptr; n = n->parent) length += n->name.size() + 1;
  WideString path(length, u'\\');
  std::size_t end = length;
  for (const PathNode* n = &node; n->parent != nullptr; n = n->parent) {
    end -= n->name.size();
    n->name.copy(path.data() + end, n->name.size());
    if (end > 0) --end;  // the backslash
  }
  return path;
}

const PathNode* ElementSource(const PathNode& node) {
  const PathNode* const source = node.name.empty() && node.parent != nullptr ? node.parent : &node;
  return source->hasElement ? source : nullptr;
}

PathTable::PathTable() : slots_(std::size_t{1} << kFirstSlotBits), shift_(64 - kFirstSlotBits) {
  nodes_.Add().hash = kSeed;
}

PathTable::Place PathTable::PlaceOf(const PathNode& parent, WideStringView name) const {
  const std::uint64_t start = parent.parent == nullptr ? parent.hash : Extend(parent.hash, u'\\');
  const std::uint64_t hash = Extend(start, name);
  const std::uint64_t spread = Spread(hash);
  const auto lowerHalf = static_cast<std::uint32_t>(spread);
  std::size_t slot = FirstSlot(spread);
  for (; slots_[slot].node != 0; slot = (slot + 1) & (slots_.size() - 1)) {
    if (slots_[slot].hash != lowerHalf) continue;
    const PathNode& node = nodes_[slots_[slot].node];
    if (node.hash == hash && node.parent == &parent && node.name == name) break;
  }
  return {hash, slot};
}

PathNode& PathTable::Child(PathNode& parent, WideStringView name) {
  const auto [hash, slot] = PlaceOf(parent, name);
  if (slots_[slot].node != 0) return nodes_[slots_[slot].node];
  slots_[slot] = {static_cast<std::uint32_t>(nodes_.Size()), static_cast<std::uint32_t>(Spread(hash))};
  PathNode& node = nodes_.Add();
  node.parent = &parent;
  node.name = name;
  node.hash = hash;
  node.key.node_ = &node;
  if (nodes_.Size() * 2 > slots_.size()) Grow();
  return node;
}

const PathNode* PathTable::Find(WideStringView path) const {
  const std::uint64_t hash = Extend(kSeed, path);
  const std::uint64_t spread = Spread(hash);
  const auto lowerHalf = static_cast<std::uint32_t>(spread);
  for (std::size_t slot = FirstSlot(spread); slots_[slot].node != 0; slot = (slot + 1) & (slots_.size() - 1)) {
    if (slots_[slot].hash != lowerHalf) continue;
    const PathNode& node = nodes_[slots_[slot].node];
    if (node.hash == hash && IsPath(&node, path)) return &node;
  }
  return nullptr;
}

const PathNode* PathTable::FindBelow(const PathNode& from, WideStringView path) const {
  const PathNode* node = &from;
  ForEachName(path, [&](WideStringView name) {
    if (node == nullptr) return;
    const std::uint32_t found = slots_[PlaceOf(*node, name).slot].node;
    node = found == 0 ? nullptr : &nodes_[found];
  });
  return node;
}

void PathTable::Grow() {
  slots_.assign(slots_.size() * 2, Slot());
  --shift_;
  for (std::size_t i = 1; i < nodes_.Size(); ++i) {
    const std::uint64_t spread = Spread(nodes_[i].hash);
    std::size_t slot = FirstSlot(spread);
    while (slots_[slot].node != 0) slot = (slot + 1) & (slots_.size() - 1);
    slots_[slot] = {static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(spread)};
  }
}

}  // namespace config
