#include "model/ordered_menu_items.h"

#include "base/number.h"
#include "base/string_table.h"
#include "model/child_key.h"
#include "platform/debug.h"

#include <utility>

namespace model {
namespace {

// 0 when the child has no usable position.
std::size_t OrdinalOf(const config::ConfigKey* key) {
  if (key == nullptr) {
    platform::DebugOutput(u"ERROR 4 CKelConfigApp::InitOrderedMenuItems\r\n");
    return 0;
  }
  const std::int32_t ordinal = base::ToLong(key->Value(TextId::kOrdinal));
  return ordinal > 0 ? static_cast<std::size_t>(ordinal) : 0;
}

}  // namespace

void InitOrderedMenuItems(std::vector<WideStringView>& names, const config::ConfigKey& parent,
                          const config::PDataStore& tree) {
  std::vector<WideStringView> slots(names.size());  // the empty name takes a place and leaves it free
  std::vector<WideStringView> unplaced;
  for (const WideStringView name : names) {
    const std::size_t ordinal = OrdinalOf(FindChild(tree, parent, name));
    const bool usable = ordinal >= 1 && ordinal <= slots.size() && slots[ordinal - 1].empty();
    if (usable) {
      slots[ordinal - 1] = name;
    } else {
      unplaced.push_back(name);
    }
  }
  const std::size_t count = names.size();
  names = std::move(slots);
  names.insert(names.end(), unplaced.begin(), unplaced.end());
  std::erase(names, WideStringView());
  names.resize(count);
}

}  // namespace model
