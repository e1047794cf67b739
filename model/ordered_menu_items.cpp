#include "model/ordered_menu_items.h"

#include "base/number.h"
#include "base/string_table.h"
#include "platform/debug.h"

#include <optional>

namespace model {
namespace {

// 0 when the child has no usable position.
std::size_t OrdinalOf(WideStringView childPath, const config::PDataStore& tree) {
  const config::ConfigKey* key = tree.Find(childPath);
  if (key == nullptr) {
    platform::DebugOutput(u"ERROR 4 CKelConfigApp::InitOrderedMenuItems\r\n");
    return 0;
  }
  const std::int32_t ordinal = base::ToLong(key->Value(TextId::kOrdinal));
  return ordinal > 0 ? static_cast<std::size_t>(ordinal) : 0;
}

}  // namespace

WideString ChildPath(WideStringView parentPath, WideStringView name) {
  if (name.find(LoadText(TextId::kHkey)) != WideStringView::npos) return WideString(name);
  WideString path;
  path.reserve(parentPath.size() + 1 + name.size());
  path.append(parentPath).append(u"\\").append(name);
  return path;
}

void InitOrderedMenuItems(std::vector<WideString>& names, WideStringView parentPath, const config::PDataStore& tree) {
  std::vector<std::optional<WideString>> slots(names.size());
  std::vector<WideString> unplaced;
  for (WideString& name : names) {
    const std::size_t ordinal = OrdinalOf(ChildPath(parentPath, name), tree);
    const bool usable = ordinal >= 1 && ordinal <= slots.size() && !slots[ordinal - 1];
    if (usable) {
      slots[ordinal - 1] = std::move(name);
    } else {
      unplaced.push_back(std::move(name));
    }
  }
  names.clear();
  for (auto& slot : slots) {
    if (slot) names.push_back(std::move(*slot));
  }
  for (WideString& name : unplaced) names.push_back(std::move(name));
}

}  // namespace model
