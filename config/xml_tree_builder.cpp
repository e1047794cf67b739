#include "config/key_writer.h"
#include "config/tree_builder.h"
#include "config/tree_walk.h"

#include <span>
#include <unordered_map>
#include <vector>

namespace config {
namespace {

// A key is read from the first element, in document order, whose path it has. A plain search for that element would
// start at the top of the document for every key, go into groups whose names fit, and come back out when they do not
// hold the rest. Here all elements are sorted under their paths instead, as far down as keys are asked for; each
// element is looked at once, and the first of a path is the one that such a search would find.
//
// In such a search a path that ends with a backslash ends there: its last, empty name is not looked for. So the key of
// "A\" shows what "A" has, while "A\\B" does lead through a group without a name.
class XmlTreeBuilder {
 public:
  XmlTreeBuilder(const XmlIndex& index, PathTable& paths, Arena& arena)
      : index_(index), paths_(paths), arena_(arena), writer_(arena) {}

  std::size_t Build(WideStringView rootPath, std::uint32_t maxDepth) {
    AddElement(paths_.Top(), XmlIndex::kDocument);
    walk_.Enter(Descend(paths_.Top(), arena_.Copy(rootPath)));
    walk_.Run(maxDepth, [this](PathNode& node, bool hasChildren) { Read(node, hasChildren); });
    return walk_.Count();
  }

 private:
  void Read(PathNode& node, bool hasChildren) {
    children_.clear();
    if (const PathNode* const source = ElementSource(node)) {
      // The keys below are mostly those of the element that the key is read from.
      PathNode* const parent = hasChildren && source == &node && !node.isExpanded ? &node : nullptr;
      ReadElement(source->firstElement, parent);
      if (parent != nullptr) ExpandFurther(node);
    }
    writer_.Finish(node.key);
    if (!hasChildren) return;
    const std::span<const WideStringView> names = node.key.Subkeys();
    for (std::size_t i = 0; i < names.size(); ++i) {
      PathNode* const child = i < children_.size() ? children_[i] : nullptr;
      walk_.Enter(child != nullptr ? *child : Descend(node, names[i]));
    }
  }

  // Of each group inside, children_ gets the path of its name below `parent`, null when that is to be looked for.
  void ReadElement(std::uint32_t element, PathNode* parent) {
    for (std::uint32_t child = index_[element].firstChildIndex; child != 0; child = index_[child].nextSiblingIndex) {
      const WideStringView tagName = index_.TagName(child);
      if (tagName != kGroup) {
        writer_.AddValue(tagName, Kept(index_.Data(child)));
        continue;
      }
      const WideStringView name = Kept(index_.Attribute(child, kName));
      writer_.AddSubkey(name);
      children_.push_back(parent != nullptr ? AddGroup(*parent, name, child) : nullptr);
    }
  }

  // Sorts the groups inside a node's elements under the paths below it.
  void Expand(PathNode& node) {
    if (node.isExpanded) return;
    if (node.hasElement) ExpandElement(node, node.firstElement);
    ExpandFurther(node);
  }

  void ExpandFurther(PathNode& node) {
    node.isExpanded = true;
    const auto found = further_.find(&node);
    if (found == further_.end()) return;
    for (const std::uint32_t element : found->second) ExpandElement(node, element);
  }

  void ExpandElement(PathNode& node, std::uint32_t element) {
    for (std::uint32_t child = index_[element].firstChildIndex; child != 0; child = index_[child].nextSiblingIndex) {
      if (index_.TagName(child) == kGroup) AddGroup(node, Kept(index_.Attribute(child, kName)), child);
    }
  }

  // Null for a name with a backslash in it, which never equals the part of a path between two backslashes.
  PathNode* AddGroup(PathNode& parent, WideStringView name, std::uint32_t element) {
    if (name.find(u'\\') != WideStringView::npos) return nullptr;
    PathNode& node = paths_.Child(parent, name);
    AddElement(node, element);
    return &node;
  }

  void AddElement(PathNode& node, std::uint32_t element) {
    if (!node.hasElement) {
      node.hasElement = true;
      node.firstElement = element;
      return;
    }
    further_[&node].push_back(element);
  }

  PathNode& Descend(PathNode& from, WideStringView path) {
    PathNode* node = &from;
    ForEachName(path, [&](WideStringView name) {
      Expand(*node);
      node = &paths_.Child(*node, name);
    });
    return *node;
  }

  // A text in the document itself where that is possible.
  WideStringView Kept(const XmlText& text) { return text.hasReferences ? arena_.Copy(text.Decoded()) : text.raw; }

  static constexpr WideStringView kGroup = u"GROUP";
  static constexpr WideStringView kName = u"name";

  const XmlIndex& index_;
  PathTable& paths_;
  Arena& arena_;
  KeyWriter writer_;
  TreeWalk walk_;
  std::vector<PathNode*> children_;
  // The elements of a path behind its first, in document order; few paths have any.
  std::unordered_map<const PathNode*, std::vector<std::uint32_t>> further_;
};

}  // namespace

std::size_t BuildFromXml(const XmlIndex& index, WideStringView rootPath, std::uint32_t maxDepth, PathTable& paths,
                         Arena& arena) {
  return XmlTreeBuilder(index, paths, arena).Build(rootPath, maxDepth);
}

}  // namespace config
