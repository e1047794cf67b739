#include "authoring/entry_lookup.h"

#include "authoring/items.h"
#include "authoring/nearest_name.h"

#include <algorithm>
#include <functional>

namespace authoring {
namespace {

using model::MenuItem;

std::vector<MenuItem*> Matching(const std::vector<MenuItem*>& items, const std::function<bool(MenuItem&)>& matches) {
  std::vector<MenuItem*> found;
  std::copy_if(items.begin(), items.end(), std::back_inserter(found), [&](MenuItem* item) { return matches(*item); });
  return found;
}

bool AreKeys(WideStringView text) {
  return !text.empty() && text.find_first_not_of(u"123456789- ") == WideStringView::npos;
}

}  // namespace

std::vector<MenuItem*> FindEntries(Trial& trial, WideStringView text) {
  if (AreKeys(text)) {
    if (MenuItem* item = trial.ItemAt(text)) return {item};
  }
  const auto same = base::EqualsIgnoringCase;
  const std::function<bool(MenuItem&)> ways[] = {
      [&](MenuItem& item) { return PathOf(item) == text || item.Path() == text; },
      [&](MenuItem& item) { return OidOf(trial, item) == text; },
      [&](MenuItem& item) { return item.DisplayName() == text || base::Trim(item.Title()) == text; },
      [&](MenuItem& item) {
        return same(PathOf(item), text) || same(OidOf(trial, item), text) || same(base::Trim(item.Title()), text);
      },
  };
  if (text.empty()) return {};
  const std::vector<MenuItem*> items = ItemsOf(trial.Model());
  for (const auto& matches : ways) {
    auto found = Matching(items, matches);
    if (!found.empty()) return found;
  }
  return {};
}

EntrySuggestions SuggestEntries(Trial& trial, WideStringView text) {
  const WideString wanted = base::ToUpper(base::Trim(text));
  if (wanted.empty()) return {};
  const std::vector<MenuItem*> items = ItemsOf(trial.Model());
  EntrySuggestions suggestions;
  std::vector<WideString> names;  // three of each item
  names.reserve(3 * items.size());
  for (MenuItem* item : items) {
    names.emplace_back(base::Trim(item->Title()));
    names.emplace_back(PathOf(*item));
    names.emplace_back(OidOf(trial, *item));
    const bool contains = std::any_of(names.end() - 3, names.end(), [&](const WideString& name) {
      return base::ToUpper(name).find(wanted) != WideString::npos;
    });
    if (contains) suggestions.items.push_back(item);
  }
  suggestions.contain = !suggestions.items.empty();
  if (suggestions.contain) return suggestions;
  for (const std::size_t place : NearestNames(wanted, std::vector<WideStringView>(names.begin(), names.end()))) {
    MenuItem* item = items[place / 3];
    if (suggestions.items.empty() || suggestions.items.back() != item) suggestions.items.push_back(item);
  }
  return suggestions;
}

}  // namespace authoring
