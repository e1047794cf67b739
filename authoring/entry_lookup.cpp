#include "authoring/entry_lookup.h"

#include "authoring/items.h"
#include "authoring/nearest_name.h"
#include "model/child_key.h"

#include <algorithm>
#include <functional>

namespace authoring {
namespace {

using model::MenuItem;
using Same = bool (*)(WideStringView, WideStringView);

std::vector<MenuItem*> Matching(const std::vector<MenuItem*>& items, const std::function<bool(MenuItem&)>& matches) {
  std::vector<MenuItem*> found;
  std::copy_if(items.begin(), items.end(), std::back_inserter(found), [&](MenuItem* item) { return matches(*item); });
  return found;
}

// Whether a path leads to an item, from the root or, `isFull`, with the root's own. Name by name from the end, so that
// the paths of deep menus are not put together for each of their items.
bool LeadsTo(const MenuItem& item, WideStringView path, bool isFull, Same same) {
  const auto isFirst = [isFull](const MenuItem& at) {
    if (at.Parent() == nullptr) return true;
    return isFull ? model::IsAbsoluteName(at.Name()) : at.Parent()->Parent() == nullptr;
  };
  const MenuItem* at = &item;
  for (; !isFirst(*at); at = at->Parent()) {
    const std::size_t length = at->Name().size();
    if (path.size() <= length) return false;
    const std::size_t backslash = path.size() - length - 1;
    if (path[backslash] != u'\\' || !same(path.substr(backslash + 1), at->Name())) return false;
    path = path.substr(0, backslash);
  }
  return same(path, at->Name());
}

bool IsSame(WideStringView a, WideStringView b) { return a == b; }

bool AreKeys(WideStringView text) {
  return !text.empty() && text.find_first_not_of(u"123456789- ") == WideStringView::npos;
}

}  // namespace

std::vector<MenuItem*> FindEntries(Trial& trial, WideStringView text) {
  if (AreKeys(text)) {
    if (MenuItem* item = trial.ItemAt(text)) return {item};
  }
  const Same same = base::EqualsIgnoringCase;
  const std::function<bool(MenuItem&)> ways[] = {
      [&](MenuItem& item) { return LeadsTo(item, text, false, IsSame) || LeadsTo(item, text, true, IsSame); },
      [&](MenuItem& item) { return OidOf(item) == text; },
      [&](MenuItem& item) { return item.DisplayName() == text || base::Trim(item.Title()) == text; },
      [&](MenuItem& item) {
        return LeadsTo(item, text, false, same) || same(OidOf(item), text) || same(base::Trim(item.Title()), text);
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
    names.emplace_back(ShownPathOf(*item));
    names.emplace_back(OidOf(*item));
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
