// Checks of the document itself: what is read of it, and under which name.
#include "authoring/checks/lists.h"

#include "authoring/checks/repeats.h"
#include "authoring/nearest_name.h"
#include "base/utf8.h"
#include "model/child_key.h"

#include <algorithm>
#include <unordered_set>

namespace authoring::checks {
namespace {

using config::XmlIndex;

constexpr WideStringView kGroup = u"GROUP";

// Calls visit(element) for each element right inside an entry's own.
template <typename Visit>
void ForEachElement(const Subject& subject, Visit visit) {
  const XmlIndex* index = subject.All().Source().Index();
  const std::uint32_t own = index == nullptr ? 0 : subject.Key().Element();
  // A key without a name is read from the element around it, which has its say there.
  const Entry* parent = subject.MenuEntry().parent;
  if (own == 0 || (parent != nullptr && parent->key->Element() == own)) return;
  for (std::uint32_t at = (*index)[own].firstChildIndex; at != 0; at = (*index)[at].nextSiblingIndex) visit(*index, at);
}

// The names say whether it is worth while to look at the elements.
template <typename Is>
bool AnySubkey(const Subject& subject, Is is) {
  const auto names = subject.Key().Subkeys();
  return std::any_of(names.begin(), names.end(), is);
}

WideString GroupName(const XmlIndex& index, std::uint32_t element) {
  return index.Attribute(element, u"name").Decoded();
}

}  // namespace

void RootNameBackslash(const Survey& survey, Findings& findings) {
  const WideString& root = survey.Source().RootPath();
  if (survey.Source().Index() == nullptr || root.find(u'\\') == WideString::npos) return;
  findings.AddAt(survey.Source().PositionAt((*survey.Source().Index())[1].startTagStart),
                 "The root " + Quoted(root) + " is looked for name by name and is not found: the menu is empty.",
                 "Give the root a name without a backslash.");
}

void AfterTheRoot(const Survey& survey, Findings& findings) {
  const XmlIndex* index = survey.Source().Index();
  if (index == nullptr) return;
  const std::size_t end = (*index)[1].endTagEnd;
  const std::size_t next = index->Text().View().find(u"<GROUP", end);
  if (next == WideStringView::npos) return;
  findings.AddAt(survey.Source().PositionAt(next), "Nothing behind the first element of the document is read.",
                 "Move it into the first GROUP.");
}

void GroupWithoutName(const Subject& subject, Findings& findings) {
  if (!AnySubkey(subject, [](WideStringView name) { return name.empty(); })) return;
  ForEachElement(subject, [&](const XmlIndex& index, std::uint32_t element) {
    if (index.TagName(element) != kGroup || !GroupName(index, element).empty()) return;
    findings.AddAt(subject, element, "A GROUP without a name is read as the entry around it, once more.",
                   "Give it a `name` that its siblings do not have.");
  });
}

void NameWithBackslash(const Subject& subject, Findings& findings) {
  if (!AnySubkey(subject, [](WideStringView name) { return name.find(u'\\') != WideStringView::npos; })) return;
  ForEachElement(subject, [&](const XmlIndex& index, std::uint32_t element) {
    if (index.TagName(element) != kGroup) return;
    const WideString name = GroupName(index, element);
    if (name.find(u'\\') == WideString::npos || model::IsAbsoluteName(name)) return;
    findings.AddAt(subject, element,
                   "The name " + Quoted(name) + " is taken apart at its backslash and not found: its line is empty.",
                   "Leave the backslash out of the name.");
  });
}

void NameHkey(const Subject& subject, Findings& findings) {
  for (const WideStringView name : subject.Key().Subkeys()) {
    // A Descendent may be meant as a whole path.
    if (!model::IsAbsoluteName(name) || name == subject.Get(Attribute::kDescendent)) continue;
    findings.Add(subject, "The child " + Quoted(name) + " is taken for a whole path, because \"HKEY\" occurs in it.",
                 "Name it otherwise.");
  }
}

void SiblingNameTwice(const Subject& subject, Findings& findings) {
  const auto names = subject.Key().Subkeys();
  bool isTwice = false;
  ForEachRepeated(
      names, [](WideStringView name) { return name; }, [&](auto, auto) { isTwice = true; });
  if (!isTwice) return;
  std::unordered_set<WideStringView> known;
  std::size_t position = 0;
  const auto said = [](WideStringView name) {
    return "Of two siblings named " + Quoted(name) + " both lines are the first one; the second is not shown.";
  };
  if (subject.All().Source().Index() == nullptr) {
    for (const WideStringView name : names) {
      if (!known.insert(name).second) findings.Add(subject, said(name), "Leave the Descendent out.");
    }
    return;
  }
  ForEachElement(subject, [&](const XmlIndex& index, std::uint32_t element) {
    if (index.TagName(element) != kGroup) return;
    const WideStringView name = names[position++];
    if (!known.insert(name).second) findings.AddAt(subject, element, said(name), "Give one of them another name.");
  });
  if (position < names.size() && known.contains(names[position])) {
    findings.Add(subject, Attribute::kDescendent, said(names[position]), "Leave the Descendent out.");
  }
}

void AttributeTwice(const Subject& subject, Findings& findings) {
  // Each name is one value or, of a GROUP, one subkey: only with more elements there is a second one.
  std::size_t elements = subject.Has(Attribute::kDescendent) ? 1 : 0;
  ForEachElement(subject, [&](const XmlIndex&, std::uint32_t) { ++elements; });
  if (elements <= subject.Key().Values().size() + subject.Key().Subkeys().size()) return;
  std::unordered_set<WideStringView> known;
  ForEachElement(subject, [&](const XmlIndex& index, std::uint32_t element) {
    const WideStringView name = index.TagName(element);
    if (name == kGroup) return;
    if (known.insert(name).second) return;
    findings.AddAt(subject, element, base::ToUtf8(name) + " stands here a second time; the last one counts.",
                   "Leave one of them.");
  });
}

void AttributeWithElements(const Subject& subject, Findings& findings) {
  ForEachElement(subject, [&](const XmlIndex& index, std::uint32_t element) {
    if (index[element].firstChildIndex == 0) return;
    const WideStringView name = index.TagName(element);
    if (name == kGroup) return;
    findings.AddAt(subject, element, base::ToUtf8(name) + " has elements in it and so reads as an empty text.",
                   "Write a plain text, &lt; for <, or a CDATA section.");
  });
}

void AttributeEmpty(const Subject& subject, Findings& findings) {
  for (const config::NamedText& value : subject.Key().Values()) {
    if (!value.text.empty() || AttributeOf(value.name).attribute == Attribute::kUnknown) continue;
    findings.Add(subject, value.name, base::ToUtf8(value.name) + " without a text is as good as none.",
                 "Give it a text, or leave it out.");
  }
}

void AttributeUnknown(const Subject& subject, Findings& findings) {
  std::vector<WideStringView> names;
  for (std::size_t i = 0; i < kAttributeCount; ++i) names.push_back(NameOf(static_cast<Attribute>(i)));
  for (const config::NamedText& value : subject.Key().Values()) {
    if (AttributeOf(value.name).attribute != Attribute::kUnknown || value.name.empty()) continue;
    WideStringView stem = value.name;
    stem = stem.substr(0, stem.find_last_not_of(u"0123456789") + 1);
    const auto nearest = NearestName(stem, names);
    const bool miscased = nearest && base::EqualsIgnoringCase(*nearest, stem) && *nearest != stem;
    findings.Add(subject, value.name,
                 "The utility does not read " + base::ToUtf8(value.name) +
                     (miscased ? ": upper and lower case count in names." : ": it is none of its names."),
                 nearest ? "Write " + base::ToUtf8(*nearest) + base::ToUtf8(value.name.substr(stem.size())) + "."
                         : "Leave it out.");
  }
}

}  // namespace authoring::checks
