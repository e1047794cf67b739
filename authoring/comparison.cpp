#include "authoring/comparison.h"

#include "authoring/checks/attributes.h"
#include "authoring/checks/check.h"
#include "authoring/entries.h"
#include "base/utf8.h"
#include "values/choice_format.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace authoring {
namespace {

// The entries of one configuration; each key once.
struct Side {
  explicit Side(const Configuration& source) : configuration(source), entries(*source.Tree(), source.RootPath()) {
    for (const Entry& entry : entries.All()) {
      if (entry.first != nullptr) continue;
      byPath.emplace(Entries::PathOf(entry), &entry);
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
  std::unordered_map<WideString, const Entry*> byPath;
  std::unordered_map<WideStringView, const Entry*> byOid;
};

class Comparer {
 public:
  Comparer(const Configuration& before, const Configuration& after) : old_(before), new_(after) {}

  std::vector<Change> Run() {
    Match();
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
      const auto there = old_.byPath.find(Entries::PathOf(entry));
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
    } else if (const Entry* former = Passed(before, after)) {
      Add(after, "reordered", "stands before " + Quoted(old_.Title(*former)) + " now");
    }
  }

  // The first sibling that stood before the entry and stands behind it now; null: none.
  const Entry* Passed(const Entry& before, const Entry& after) const {
    const auto& siblings = after.parent->children;
    const auto here = std::find(siblings.begin(), siblings.end(), &after);
    const auto& former = before.parent->children;
    const auto there = std::find(former.begin(), former.end(), &before);
    for (auto sibling = here == siblings.end() ? here : here + 1; sibling != siblings.end(); ++sibling) {
      const auto old = oldOf_.find(*sibling);
      if (old != oldOf_.end() && std::find(former.begin(), there, old->second) != there) return old->second;
    }
    return nullptr;
  }

  static values::ChoiceFormat ChoicesOf(const Side& side, const Entry& entry) {
    return {side.configuration.Symbols().TextOf(entry.Value(TextId::kChoiceFmt)), values::KeyMode::kText};
  }

  void CompareChoices(const Entry& before, const Entry& after) {
    const values::ChoiceFormat olds = ChoicesOf(old_, before);
    const values::ChoiceFormat news = ChoicesOf(new_, after);
    for (const auto& choice : news.Entries()) {
      const auto text = olds.GetText(choice.key);
      if (!text) {
        Add(after, "choice-added", "has the choice " + Quoted(choice.text) + " (" + base::ToUtf8(choice.key) + ") now");
      } else if (*text != choice.text) {
        Add(after, "choice-renamed",
            "calls the choice " + base::ToUtf8(choice.key) + " " + Quoted(choice.text) + " instead of " +
                Quoted(*text));
      }
    }
    for (const auto& choice : olds.Entries()) {
      if (!news.GetText(choice.key)) {
        Add(after, "choice-removed",
            "has the choice " + Quoted(choice.text) + " (" + base::ToUtf8(choice.key) + ") no more");
      }
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

  Side old_;
  Side new_;
  std::unordered_map<const Entry*, const Entry*> oldOf_;
  std::unordered_set<const Entry*> matched_;
  std::vector<Change> changes_;
};

}  // namespace

std::vector<Change> Compare(const Configuration& before, const Configuration& after) {
  return Comparer(before, after).Run();
}

}  // namespace authoring
