#include "authoring/comparison.h"

#include "authoring/checks/attributes.h"
#include "authoring/checks/check.h"
#include "authoring/entries.h"
#include "base/utf8.h"
#include "config/path_table.h"
#include "values/choice_format.h"

#include <algorithm>
#include <functional>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace authoring {
namespace {

// Numbers for paths below the root: a path is the one before it and a name more, which costs no more than that name
// however deep it leads.
class PathNumbers {
 public:
  static constexpr std::size_t kRoot = 0;

  // `name` may be a path itself; it lives longer.
  std::size_t Below(std::size_t path, WideStringView name) {
    config::ForEachName(name, [&](WideStringView one) {
      path = numbers_.try_emplace(std::pair(path, one), numbers_.size() + 1).first->second;
    });
    return path;
  }

 private:
  struct Hash {
    std::size_t operator()(const std::pair<std::size_t, WideStringView>& step) const {
      constexpr std::size_t kFactor = 0x9E3779B97F4A7C15;
      return step.first * kFactor ^ std::hash<WideStringView>()(step.second);
    }
  };
  std::unordered_map<std::pair<std::size_t, WideStringView>, std::size_t, Hash> numbers_;
};

// The entries of one configuration; each key once.
struct Side {
  Side(const Configuration& source, PathNumbers& numbers)
      : configuration(source), entries(*source.Tree(), source.RootPath()) {
    for (const Entry& entry : entries.All()) {
      if (entry.first != nullptr) continue;
      const std::size_t path =
          entry.parent == nullptr ? PathNumbers::kRoot : numbers.Below(paths.at(entry.parent), entry.name);
      paths.emplace(&entry, path);
      byPath.emplace(path, &entry);
      if (entry.Oid().empty()) continue;
      // An OID that occurs twice tells nothing apart.
      const auto [place, isNew] = byOid.emplace(entry.Oid(), &entry);
      if (!isNew) place->second = nullptr;
    }
  }

  WideString Title(const Entry& entry) const { return configuration.Symbols().TextOf(entry.DisplayName()); }
  Position PositionOf(const Entry& entry) const { return configuration.PositionOf(*entry.key); }

  const Configuration& configuration;
  Entries entries;
  std::unordered_map<const Entry*, std::size_t> paths;
  std::unordered_map<std::size_t, const Entry*> byPath;
  std::unordered_map<WideStringView, const Entry*> byOid;
};

class Comparer {
 public:
  Comparer(const Configuration& before, const Configuration& after) : old_(before, numbers_), new_(after, numbers_) {}

  std::vector<Change> Run() {
    Match();
    NoteOrder();
    for (const Entry& entry : new_.entries.All()) {
      if (entry.first != nullptr) continue;
      const auto found = oldOf_.find(&entry);
      if (found != oldOf_.end()) {
        CompareEntry(*found->second, entry);
      } else if (entry.parent == nullptr || oldOf_.contains(entry.parent)) {
        Add(new_, entry, "added", (entry.IsMenu() ? "is new, with all below it" : "is new") + Place(new_, entry));
      }
    }
    for (const Entry& entry : old_.entries.All()) {
      if (entry.first != nullptr || matched_.contains(&entry)) continue;
      if (entry.parent != nullptr && !matched_.contains(entry.parent)) continue;
      Add(old_, entry, "removed",
          (entry.IsMenu() ? "is gone, with what stood below it" : "is gone") + Place(old_, entry));
    }
    return std::move(changes_);
  }

 private:
  // By OID first, for that is what stays when an entry is renamed and moved; else by path.
  void Match() {
    for (const Entry& entry : new_.entries.All()) {
      if (entry.first != nullptr || entry.Oid().empty()) continue;
      const auto here = new_.byOid.find(entry.Oid());
      const auto there = old_.byOid.find(entry.Oid());
      if (here->second != &entry || there == old_.byOid.end() || there->second == nullptr) continue;
      Pair(*there->second, entry);
    }
    for (const Entry& entry : new_.entries.All()) {
      if (entry.first != nullptr || oldOf_.contains(&entry)) continue;
      const auto there = old_.byPath.find(new_.paths.at(&entry));
      if (there == old_.byPath.end() || matched_.contains(there->second)) continue;
      // A property that has become another one is another entry.
      const bool sameKind = there->second->Oid().empty() == entry.Oid().empty();
      if (sameKind) Pair(*there->second, entry);
    }
  }

  void Pair(const Entry& before, const Entry& after) {
    oldOf_.emplace(&after, &before);
    matched_.insert(&before);
  }

  std::string Place(const Side& side, const Entry& entry) const {
    return entry.parent == nullptr ? "" : " in " + Quoted(side.Title(*entry.parent));
  }

  void Add(const Side& side, const Entry& entry, std::string kind, std::string sentence) {
    changes_.push_back({std::move(kind), Entries::PathOf(entry), std::move(sentence), side.PositionOf(entry)});
  }
  void Add(const Entry& entry, std::string kind, std::string sentence) {
    Add(new_, entry, std::move(kind), std::move(sentence));
  }

  void CompareEntry(const Entry& before, const Entry& after) {
    if (old_.Title(before) != new_.Title(after)) {
      const std::string names = Quoted(new_.Title(after)) + " instead of " + Quoted(old_.Title(before));
      if (before.DisplayName() == after.DisplayName()) {
        Add(after, "symbol-changed", "reads " + names + " by the symbol " + base::ToUtf8(after.DisplayName()));
      } else {
        Add(after, "renamed", "is called " + names);
      }
    }
    ComparePlace(before, after);
    CompareChoices(before, after);
    std::map<WideString, std::pair<WideStringView, WideStringView>> texts;
    for (const auto& value : before.key->Values()) texts[WideString(value.name)].first = value.text;
    for (const auto& value : after.key->Values()) texts[WideString(value.name)].second = value.text;
    for (const auto& [name, pair] : texts) {
      if (pair.first != pair.second) CompareAttribute(after, name, pair.first, pair.second);
    }
  }

  void ComparePlace(const Entry& before, const Entry& after) {
    if (after.parent == nullptr || before.parent == nullptr) return;
    const auto parent = oldOf_.find(after.parent);
    const bool sameMenu = parent != oldOf_.end() && parent->second == before.parent;
    if (!sameMenu) {
      Add(after, "moved",
          "has moved from " + Quoted(old_.Title(*before.parent)) + " to " + Quoted(new_.Title(*after.parent)));
    } else if (const auto former = passed_.find(&after); former != passed_.end()) {
      Add(after, "reordered", "stands before " + Quoted(old_.Title(*former->second)) + " now");
    }
  }

  // Of each entry the first one behind it in its menu that stood before it.
  void NoteOrder() {
    std::unordered_map<const Entry*, std::size_t> oldPlaces;
    for (const Entry& menu : old_.entries.All()) {
      for (std::size_t i = 0; i < menu.children.size(); ++i) oldPlaces[menu.children[i]] = i;
    }
    for (const Entry& menu : new_.entries.All()) {
      const auto oldMenu = oldOf_.find(&menu);
      if (oldMenu == oldOf_.end()) continue;
      // From the end on, those that stood further up than all between them and the present one, the nearest last: so
      // none is looked at twice, however long the menu.
      std::vector<std::pair<std::size_t, const Entry*>> behind;
      for (auto child = menu.children.rbegin(); child != menu.children.rend(); ++child) {
        const auto old = oldOf_.find(*child);
        if (old == oldOf_.end() || old->second->parent != oldMenu->second) continue;
        const std::size_t place = oldPlaces.at(old->second);
        while (!behind.empty() && behind.back().first > place) behind.pop_back();
        if (!behind.empty()) passed_.emplace(*child, behind.back().second);
        behind.emplace_back(place, old->second);
      }
    }
  }

  // The texts of the choices by their keys; of two with one key the first is what a line shows.
  using Choices = std::vector<std::pair<WideString, WideString>>;
  static Choices ChoicesOf(const Side& side, const Entry& entry) {
    const values::ChoiceFormat format(side.configuration.Symbols().TextOf(entry.Value(TextId::kChoiceFmt)),
                                      values::KeyMode::kText);
    Choices choices;
    for (const auto& choice : format.Entries()) choices.emplace_back(choice.key, choice.text);
    return choices;
  }
  static std::unordered_map<WideStringView, WideStringView> ByKey(const Choices& choices) {
    return {choices.begin(), choices.end()};
  }

  void CompareChoices(const Entry& before, const Entry& after) {
    const Choices olds = ChoicesOf(old_, before);
    const Choices news = ChoicesOf(new_, after);
    const auto oldByKey = ByKey(olds);
    const auto newByKey = ByKey(news);
    const auto named = [](const WideString& key, const WideString& text) {
      return Quoted(text) + " (" + base::ToUtf8(key) + ")";
    };
    for (const auto& [key, text] : news) {
      const auto old = oldByKey.find(key);
      if (old == oldByKey.end()) {
        Add(after, "choice-added", "has the choice " + named(key, text) + " now");
      } else if (old->second != text) {
        Add(after, "choice-renamed",
            "calls the choice " + base::ToUtf8(key) + " " + Quoted(text) + " instead of " + Quoted(old->second));
      }
    }
    for (const auto& [key, text] : olds) {
      if (!newByKey.contains(key)) Add(after, "choice-removed", "has the choice " + named(key, text) + " no more");
    }
  }

  void CompareAttribute(const Entry& after, const WideString& name, WideStringView before, WideStringView now) {
    const Attribute attribute = AttributeOf(name).attribute;
    // Those say it in words of their own.
    if (attribute == Attribute::kDisplayName || attribute == Attribute::kOrdinal || attribute == Attribute::kChoiceFmt)
      return;
    std::string kind = "attribute";
    std::string what = base::ToUtf8(name);
    if (attribute == Attribute::kDependency) {
      kind = "rule";
      what = "the rule " + what;
    } else if (attribute == Attribute::kOnExit || attribute == Attribute::kOnEnter) {
      kind = "handler";
      what = "the handler " + what;
    }
    if (before.empty()) {
      Add(after, kind + "-added", "has " + what + " now: " + Quoted(now));
    } else if (now.empty()) {
      Add(after, kind + "-removed", "has " + what + " no more: " + Quoted(before));
    } else {
      Add(after, kind + "-changed", "has changed in " + what + " from " + Quoted(before) + " to " + Quoted(now));
    }
  }

  PathNumbers numbers_;
  Side old_;
  Side new_;
  std::unordered_map<const Entry*, const Entry*> oldOf_;
  std::unordered_set<const Entry*> matched_;
  std::unordered_map<const Entry*, const Entry*> passed_;  // new entries, and the old ones that they stand before now
  std::vector<Change> changes_;
};

}  // namespace

std::vector<Change> Compare(const Configuration& before, const Configuration& after) {
  return Comparer(before, after).Run();
}

}  // namespace authoring
