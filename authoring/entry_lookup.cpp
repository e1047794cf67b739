#include "authoring/entry_lookup.h"

#include <algorithm>
#include <functional>

namespace authoring {
namespace {

using model::MenuItem;

std::vector<MenuItem*> ItemsOf(model::MenuModel& model) {
  std::vector<MenuItem*> items{&model.Root()};
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& child : items[i]->Children()) items.push_back(child.get());
  }
  return items;
}

std::vector<MenuItem*> Matching(const std::vector<MenuItem*>& items, const std::function<bool(MenuItem&)>& matches) {
  std::vector<MenuItem*> found;
  std::copy_if(items.begin(), items.end(), std::back_inserter(found), [&](MenuItem* item) { return matches(*item); });
  return found;
}

bool AreKeys(WideStringView text) {
  return !text.empty() && text.find_first_not_of(u"123456789- ") == WideStringView::npos;
}

}  // namespace

WideString PathOf(const MenuItem& item) {
  WideString path;
  for (const MenuItem* at = &item; at->Parent() != nullptr; at = at->Parent()) {
    path = path.empty() ? WideString(at->Name()) : WideString(at->Name()) + u"\\" + path;
  }
  return path;
}

std::vector<MenuItem*> FindEntries(Trial& trial, WideStringView text) {
  if (AreKeys(text)) {
    if (MenuItem* item = trial.ItemAt(text)) return {item};
  }
  model::MenuModel& model = trial.Model();
  const auto oidOf = [&model](const MenuItem& item) {
    const config::ConfigKey* key = model.FindKey(item.Path());
    if (key == nullptr) return WideStringView();
    const WideStringView oid = key->Value(TextId::kOid);
    return oid.empty() ? key->Value(TextId::kCmdOid) : oid;
  };
  const auto same = base::EqualsIgnoringCase;
  const std::function<bool(MenuItem&)> ways[] = {
      [&](MenuItem& item) { return PathOf(item) == text || item.Path() == text; },
      [&](MenuItem& item) { return oidOf(item) == text; },
      [&](MenuItem& item) { return item.DisplayName() == text || base::Trim(item.Title()) == text; },
      [&](MenuItem& item) {
        return same(PathOf(item), text) || same(oidOf(item), text) || same(base::Trim(item.Title()), text);
      },
  };
  if (text.empty()) return {};
  const std::vector<MenuItem*> items = ItemsOf(model);
  for (const auto& matches : ways) {
    auto found = Matching(items, matches);
    if (!found.empty()) return found;
  }
  return {};
}

}  // namespace authoring
