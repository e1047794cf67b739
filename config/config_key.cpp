#include "config/config_key.h"

#include "config/path_table.h"

#include <algorithm>

namespace config {

WideString ConfigKey::FullPath() const { return PathOf(*node_); }

bool ConfigKey::IsChildOf(const ConfigKey& parent) const { return node_->parent == parent.node_; }

std::uint32_t ConfigKey::Element() const {
  const PathNode* const source = ElementSource(*node_);
  return source == nullptr ? 0 : source->firstElement;
}

WideStringView ConfigKey::Value(WideStringView name) const {
  const std::span<const NamedText> values = Values();
  auto found = values.end();
  if (values.size() > kManyValues) {
    found = std::lower_bound(values.begin(), values.end(), NamedText{name, {}}, NameLess);
    if (found != values.end() && found->name != name) found = values.end();
  } else {
    found = std::find_if(values.begin(), values.end(), [name](const NamedText& value) { return value.name == name; });
  }
  return found == values.end() ? WideStringView() : found->text;
}

WideStringView ConfigKey::Value(TextId nameId) const {
  const WideStringView name = LoadText(nameId);
  return name.empty() ? WideStringView() : Value(name);
}

const std::vector<WideString>* ConfigKey::List(WideStringView name) const {
  if (!lists_) return nullptr;
  const auto found = lists_->find(name);
  return found == lists_->end() ? nullptr : &found->second;
}

}  // namespace config
