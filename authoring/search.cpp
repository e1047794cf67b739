#include "authoring/search.h"

#include "base/string_table.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace authoring {
namespace {

using model::MenuItem;

// How near a match is; the first fits best.
enum Rank { kName, kOid, kValue, kAttribute, kNoMatch };

class Searcher {
 public:
  Searcher(Trial& trial, WideStringView text) : trial_(trial), wanted_(base::ToUpper(text)) {}

  std::vector<Hit> Run() {
    if (wanted_.empty()) return {};
    std::vector<MenuItem*> items{&trial_.Model().Root()};
    CollectBelow(trial_.Model().Root(), items);
    for (MenuItem* item : items) Look(*item);
    std::stable_sort(hits_.begin(), hits_.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Hit> found;
    found.reserve(hits_.size());
    for (auto& [rank, hit] : hits_) found.push_back(std::move(hit));
    return found;
  }

 private:
  static void CollectBelow(MenuItem& root, std::vector<MenuItem*>& items) {
    std::vector<MenuItem*> open{&root};
    while (!open.empty()) {
      MenuItem* menu = open.back();
      open.pop_back();
      if (menu != &root) items.push_back(menu);
      for (auto child = menu->Children().rbegin(); child != menu->Children().rend(); ++child)
        open.push_back(child->get());
    }
  }

  bool Holds(WideStringView text) const { return base::ToUpper(text).find(wanted_) != WideString::npos; }

  void Look(MenuItem& item) {
    const config::ConfigKey* key = item.Key();
    if (key == nullptr) return;
    Rank best = kNoMatch;
    Hit hit{&item, key, {}, {}};
    const auto take = [&](Rank rank, WideStringView matched, WideStringView text) {
      if (rank >= best) return;
      best = rank;
      hit.matched = matched;
      hit.text = text;
    };
    if (Holds(item.Title())) take(kName, LoadText(TextId::kDisplayName), item.Title());
    for (const config::NamedText& value : key->Values()) {
      if (!Holds(value.text) && base::ToUpper(value.name) != wanted_) continue;
      const bool isName = value.name == LoadText(TextId::kDisplayName);
      const bool isOid = value.name == LoadText(TextId::kOid) || value.name == LoadText(TextId::kCmdOid);
      take(isName ? kName : isOid ? kOid : kAttribute, value.name, value.text);
    }
    if (best > kValue && item.Descriptor() != nullptr) {
      const WideString shown = trial_.Model().ShownValue(*item.Descriptor());
      if (Holds(shown)) take(kValue, u"value", shown);
    }
    if (best != kNoMatch) hits_.emplace_back(best, std::move(hit));
  }

  Trial& trial_;
  WideString wanted_;
  std::vector<std::pair<Rank, Hit>> hits_;
};

}  // namespace

Hits Search(Trial& trial, WideStringView text) {
  std::vector<Hit> hits = Searcher(trial, text).Run();
  std::vector<MenuItem*> items;
  items.reserve(hits.size());
  for (const Hit& hit : hits) items.push_back(hit.item);
  return {std::move(hits), MenuKeys(trial, items)};
}

}  // namespace authoring
