#include "authoring/items.h"

#include "authoring/shown_path.h"
#include "model/entry_kind.h"

#include <algorithm>

namespace authoring {

using model::MenuItem;

std::vector<MenuItem*> ItemsOf(model::MenuModel& model) {
  std::vector<MenuItem*> items{&model.Root()};
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
  }
  return items;
}

ItemPlace PlaceOf(const model::MenuItem& item) {
  ItemPlace place;
  for (const model::MenuItem* at = &item; at->Parent() != nullptr; at = at->Parent()) {
    const auto& siblings = at->Parent()->Children();
    const auto here = std::find_if(siblings.begin(), siblings.end(), [at](const auto& i) { return i.get() == at; });
    place.push_back(static_cast<std::size_t>(here - siblings.begin()));
  }
  std::reverse(place.begin(), place.end());
  return place;
}

model::MenuItem* ItemAtPlace(model::MenuModel& model, const ItemPlace& place) {
  model::MenuItem* item = &model.Root();
  for (const std::size_t index : place) {
    if (index >= item->Children().size()) return nullptr;
    item = item->Children()[index].get();
  }
  return item;
}

WideString PathOf(const MenuItem& item) {
  std::vector<const MenuItem*> way;
  for (const MenuItem* at = &item; at->Parent() != nullptr; at = at->Parent()) way.push_back(at);
  WideString path;
  for (auto at = way.rbegin(); at != way.rend(); ++at) {
    if (!path.empty()) path.push_back(u'\\');
    path.append((*at)->Name());
  }
  return path;
}

WideString ShownPathOf(const MenuItem& item) {
  const MenuItem* at = &item;
  return ShownPath([&at]() -> std::optional<WideStringView> {
    if (at->Parent() == nullptr) return std::nullopt;
    const WideStringView name = at->Name();
    at = at->Parent();
    return name;
  });
}

WideStringView OidOf(const MenuItem& item) {
  return item.Key() == nullptr ? WideStringView() : model::OidOf(*item.Key());
}

WideString KeysInWords(WideStringView keys) {
  WideString words;
  for (const char16_t key : keys) {
    if (!words.empty()) words.push_back(u'-');
    words.push_back(key);
  }
  return words;
}

}  // namespace authoring
