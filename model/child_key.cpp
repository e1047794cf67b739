#include "model/child_key.h"

#include "base/string_table.h"

namespace model {

bool IsAbsoluteName(WideStringView name) { return name.find(LoadText(TextId::kHkey)) != WideStringView::npos; }

const config::ConfigKey* FindChild(const config::PDataStore& tree, const config::ConfigKey& parent,
                                   WideStringView name) {
  return IsAbsoluteName(name) ? tree.Find(name) : tree.FindBelow(parent, name);
}

}  // namespace model
