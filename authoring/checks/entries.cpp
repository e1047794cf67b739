// Checks of entries as lines of menus: what they are, how they are named and ordered.
#include "authoring/checks/lists.h"

#include "authoring/checks/repeats.h"
#include "base/number.h"
#include "base/utf8.h"

#include <algorithm>

namespace authoring::checks {
namespace {

constexpr AttributeSet kProperty{Attribute::kOid, Attribute::kCmdOid};

// A key that the source does not hold is in the tree too, without anything.
bool IsMissing(const Subject& subject) {
  return subject.Key().Element() == 0 && subject.Key().Values().empty() && subject.Key().Subkeys().empty();
}

bool IsDescendent(const Entry& entry) {
  return entry.parent != nullptr && !entry.name.empty() && entry.parent->Value(u"Descendent") == entry.name;
}

bool IsRoot(const Subject& subject) { return subject.MenuEntry().parent == nullptr; }

}  // namespace

void DisplayNameMissing(const Subject& subject, Findings& findings) {
  if (subject.Has(Attribute::kDisplayName) || IsMissing(subject)) return;
  findings.Add(subject, IsRoot(subject) ? "The main menu has no title." : "Its line has a number and no name.",
               "Give it a DisplayName.");
}

void EntryNothing(const Subject& subject, Findings& findings) {
  if (subject.IsMenu() || subject.IsCommand() || subject.Set().HasAnyOf(kProperty)) return;
  if (IsMissing(subject)) return;
  findings.Add(subject,
               IsRoot(subject) ? "The main menu has no entries: \"(no items)\" is all it shows."
                               : "It is no menu, no property and no command: Enter does nothing on its line.",
               "Give it entries, an OID, a Function or an AppName.");
}

void EntryTwoThings(const Subject& subject, Findings& findings) {
  if (subject.IsMenu() && subject.IsCommand()) {
    findings.Add(subject, "It has entries, so Enter opens it as a menu and its command never runs.",
                 "Make the command an entry of its own.");
  } else if (subject.IsMenu() && subject.IsProperty() && subject.Type() != values::TypeCode::kReaderCmd &&
             !subject.Has(Attribute::kSecurity) && !subject.Has(Attribute::kCmdString)) {
    findings.Add(subject, "It has entries, so Enter opens it as a menu and its value is never edited.",
                 "Make the property an entry of its own, or give it Security.");
  } else if (subject.IsCommand() && subject.IsProperty() && !subject.Has(Attribute::kSecurity) &&
             subject.Get(Attribute::kFunction) != u"ImportCertificates") {
    findings.Add(subject, "Enter runs its command, so its value is never edited.",
                 "Make two entries of it, or give it Security.");
  }
}

void OidTwice(const Survey& survey, Findings& findings) {
  for (const SubjectIndex::Group& all : survey.SharedOids()) {
    const std::string first = base::ToUtf8(Entries::PathOf(all.front()->MenuEntry()));
    for (const Subject* again : all.subspan(1)) {
      findings.Add(*again, again->Has(Attribute::kOid) ? Attribute::kOid : Attribute::kCmdOid,
                   "The OID " + Quoted(again->Oid()) + " has an entry already, " + first +
                       ": rules and commands see the last one only, and neither line follows a change of the other.",
                   "Give each setting one entry; show it twice by a Descendent.");
    }
  }
}

void SiblingTitleTwice(const Subject& subject, Findings& findings) {
  struct Line {
    const Entry* entry;
    WideStringView title;
  };
  const Survey& survey = subject.All();
  std::vector<Line> lines;
  lines.reserve(subject.MenuEntry().children.size());
  for (const Entry* child : subject.MenuEntry().children) {
    const WideStringView name = survey.Of(*child).Get(Attribute::kDisplayName);
    if (!name.empty()) lines.push_back({child, survey.Source().Symbols().ViewOf(name)});
  }
  const auto titleOf = [](const Line& line) { return line.title; };
  ForEachRepeated(lines, titleOf, [&](const Line& first, const Line& again) {
    // Siblings of one name are one key, and that is another slip.
    if (first.entry->key == again.entry->key) return;
    findings.Add(survey.Of(*again.entry), Attribute::kDisplayName,
                 "Another line of its menu reads " + Quoted(first.title) + " too: people cannot tell them apart.",
                 "Name one of them otherwise.");
  });
}

namespace {

struct Ordinals {
  std::vector<const Entry*> taken;  // by Ordinal from 0 on; null: nobody has it
  std::size_t usable = 0;
};

template <typename Odd>
Ordinals ReadOrdinals(const Subject& subject, Odd odd) {
  Ordinals ordinals;
  const auto& children = subject.MenuEntry().children;
  ordinals.taken.resize(children.size() + 1);
  for (const Entry* child : children) {
    const WideStringView text = subject.All().Of(*child).Get(Attribute::kOrdinal);
    if (text.empty() || child->first != nullptr) continue;
    const auto number = base::FindLong(text);
    const bool inRange = number && *number >= 1 && static_cast<std::size_t>(*number) <= children.size();
    if (!inRange) {
      odd(*child, text, false);
      continue;
    }
    const Entry*& place = ordinals.taken[static_cast<std::size_t>(*number)];
    if (place != nullptr) {
      odd(*child, text, true);
    } else {
      place = child;
      ++ordinals.usable;
    }
  }
  return ordinals;
}

}  // namespace

void OrdinalOutOfRange(const Subject& subject, Findings& findings) {
  ReadOrdinals(subject, [&](const Entry& child, WideStringView text, bool twice) {
    if (twice) return;
    findings.Add(subject.All().Of(child), Attribute::kOrdinal,
                 "The Ordinal " + Quoted(text) + " is not from 1 to " +
                     std::to_string(subject.MenuEntry().children.size()) +
                     ", the number of lines: the entry comes last.",
                 "Count the entries of the menu from 1.");
  });
}

void OrdinalTwice(const Subject& subject, Findings& findings) {
  ReadOrdinals(subject, [&](const Entry& child, WideStringView text, bool twice) {
    if (!twice) return;
    findings.Add(
        subject.All().Of(child), Attribute::kOrdinal,
        "A line of its menu has the Ordinal " + Quoted(text) + " already: this one comes behind all that have a place.",
        "Count the entries of the menu from 1.");
  });
}

void OrdinalGap(const Subject& subject, Findings& findings) {
  bool odd = false;
  const Ordinals ordinals = ReadOrdinals(subject, [&](const Entry&, WideStringView, bool) { odd = true; });
  if (odd || ordinals.usable == 0) return;
  const auto& taken = ordinals.taken;
  std::size_t highest = taken.size() - 1;
  while (taken[highest] == nullptr) --highest;
  if (highest == ordinals.usable) return;
  std::size_t missing = 1;
  while (taken[missing] != nullptr) ++missing;
  findings.Add(subject.All().Of(*taken[highest]), Attribute::kOrdinal,
               "No entry of its menu has the Ordinal " + std::to_string(missing) +
                   ": the lines behind it move up, so that this is not line " + std::to_string(highest) + ".",
               "Count the entries of the menu from 1 without a gap.");
}

void DescendentNowhere(const Subject& subject, Findings& findings) {
  for (const Entry* child : subject.MenuEntry().children) {
    if (!IsDescendent(*child) || !IsMissing(subject.All().Of(*child))) continue;
    findings.Add(subject, Attribute::kDescendent,
                 "There is no entry " + Quoted(child->name) + " below this one: the menu's last line is empty.",
                 "Name an entry by its path from here.");
  }
}

void DescendentCircle(const Subject& subject, Findings& findings) {
  for (const Entry* child : subject.MenuEntry().children) {
    const bool leadsBack = child->first != nullptr && Entries::IsWithin(subject.MenuEntry(), *child->first);
    if (!leadsBack || !IsDescendent(*child)) continue;
    findings.Add(subject, Attribute::kDescendent, "It leads back to a menu that is open already, and is left out.",
                 "Leave the Descendent out.");
  }
}

void NumberGap(const Subject& subject, Findings& findings) {
  for (const Attribute stem : {Attribute::kDependency, Attribute::kOnExit}) {
    if (!subject.Has(stem)) continue;
    int runs = 0;
    while (!subject.Key().Value(NumberedName(stem, runs)).empty()) ++runs;
    for (const config::NamedText& value : subject.Key().Values()) {
      const NamedAttribute named = AttributeOf(value.name);
      if (named.attribute != stem || named.number < runs || value.text.empty()) continue;
      findings.Add(subject, value.name,
                   base::ToUtf8(NumberedName(stem, runs)) + " is not set, so " + base::ToUtf8(value.name) +
                       " behind it never runs.",
                   "Number them without a gap: " + base::ToUtf8(NumberedName(stem, 0)) + ", " +
                       base::ToUtf8(NumberedName(stem, 1)) + ", " + base::ToUtf8(NumberedName(stem, 2)) + ".");
    }
  }
}

}  // namespace authoring::checks
