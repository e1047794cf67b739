#include "bench/pugixml_tree.h"

#include "base/utf8.h"

#include <pugixml.hpp>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace bench {
namespace {

struct Key {
  std::unordered_map<std::u16string, std::u16string> values;
  std::vector<std::u16string> subkeys;
};

using Tree = std::unordered_map<std::u16string, Key>;

void Walk(const pugi::xml_node& group, const std::u16string& path, Tree& tree) {
  Key& key = tree[path];
  for (const pugi::xml_node& child : group.children()) {
    if (child.type() != pugi::node_element) continue;
    if (std::string_view(child.name()) == "GROUP") {
      key.subkeys.push_back(base::FromUtf8(child.attribute("name").value()));
      Walk(child, path + u"\\" + key.subkeys.back(), tree);
    } else {
      key.values[base::FromUtf8(child.name())] = base::FromUtf8(child.child_value());
    }
  }
}

}  // namespace

bool LoadWithPugixml(std::string_view bytes) {
  pugi::xml_document document;
  return static_cast<bool>(document.load_buffer(bytes.data(), bytes.size()));
}

std::size_t BuildTreeWithPugixml(std::string_view bytes) {
  pugi::xml_document document;
  document.load_buffer(bytes.data(), bytes.size());
  const pugi::xml_node root = document.child("GROUP");
  Tree tree;
  Walk(root, base::FromUtf8(root.attribute("name").value()), tree);
  return tree.size();
}

}  // namespace bench
