// Checks of rules as they are written.
#include "authoring/checks/lists.h"

#include "authoring/checks/rule_text.h"
#include "base/utf8.h"
#include "rules/rule_actions.h"
#include "values/choice_format.h"

#include <algorithm>

namespace authoring::checks {
namespace {

// The names of all rows of a table.
template <typename Row>
std::vector<WideStringView> NamesOf(std::span<const Row> rows) {
  std::vector<WideStringView> names;
  for (const Row& row : rows) names.push_back(row.name);
  return names;
}

// The source of a command's defaults looks like a rule of three fields.
bool IsDefaultsSource(const Subject& subject, const RuleText& rule) {
  return rule.form == RuleText::Form::kFlag && rule.fields == 3 && rule.number == 0 &&
         subject.Get(Attribute::kType) == LoadText(TextId::kReaderCmd);
}

template <typename Visit>
void ForEachRule(const Subject& subject, RuleText::Form form, Visit visit) {
  for (const RuleText& rule : subject.Rules()) {
    if (rule.form == form && !IsDefaultsSource(subject, rule)) {
      visit(rule, NumberedName(Attribute::kDependency, rule.number));
    }
  }
}

template <typename Visit>
void ForEachAction(const Subject& subject, Visit visit) {
  ForEachRule(subject, RuleText::Form::kCondition, [&](const RuleText& rule, const WideString& attribute) {
    for (const WideString* action : {&rule.thenAction, &rule.elseAction}) {
      if (!action->empty()) visit(rule, attribute, *action);
    }
  });
}

std::size_t PlaceOf(const RuleText& rule, WideStringView text) {
  const std::size_t found = rule.text.find(text);
  return found == WideStringView::npos ? 0 : found;
}

// A name that a flag rule may use although no entry has it.
bool IsKnownOid(const Survey& survey, WideStringView oid) {
  if (oid.empty() || base::EqualsIgnoringCase(oid, u"this") || base::EqualsIgnoringCase(oid, u"Empty")) return true;
  if (!survey.WithOid(oid).empty()) return true;
  const std::size_t colon = oid.find(u':');
  if (colon != WideStringView::npos && !survey.WithOid(oid.substr(0, colon)).empty()) return true;
  const auto& terminal = survey.Source().Terminal();
  if (oid.starts_with(u'_')) return false;
  return !terminal.hasDevice || terminal.device.contains(oid);
}

}  // namespace

void RuleMalformed(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kMalformed, [&](const RuleText& rule, const WideString& attribute) {
    findings.Add(subject, attribute, rule.broken,
                 "The rule breaks at " + Quoted(rule.text.substr(std::min(rule.broken, rule.text.size()))) +
                     " and does nothing: " + rule.reason + ".",
                 "Write IF name EQ value THEN action ELSE action, or OID|type|value|flag.");
  });
}

void RuleTrailing(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kCondition, [&](const RuleText& rule, const WideString& attribute) {
    if (rule.rest == WideStringView::npos) return;
    findings.Add(subject, attribute, rule.rest, "Nothing from " + Quoted(rule.text.substr(rule.rest)) + " on is read.",
                 "Put an action with blanks in quotes as a whole; only ELSE and one action may follow.");
  });
}

void RuleActionMissing(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kCondition, [&](const RuleText& rule, const WideString& attribute) {
    if (!rule.thenAction.empty()) return;
    findings.Add(subject, attribute, rule.text.size(), "The rule has no action behind THEN and does nothing.",
                 "Add an action, such as NoDisplay.");
  });
}

void ActionUnknown(const Subject& subject, Findings& findings) {
  ForEachAction(subject, [&](const RuleText& rule, const WideString& attribute, const WideString& action) {
    if (rules::FindAction(action) != nullptr || rules::ReadChoicesAction(action)) return;
    findings.Add(subject, attribute, PlaceOf(rule, action),
                 "There is no action " + Quoted(action) + ": the rule does nothing when it asks for it.",
                 MendByNearest(action, NamesOf(rules::Actions()), "Take a flag, UnCheckMark or ChoiceFmt=."));
  });
}

void RuleNotFourParts(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kFlag, [&](const RuleText& rule, const WideString& attribute) {
    if (rule.fields == 4) return;
    const bool hasBars = rule.fields > 4;
    findings.Add(subject, attribute,
                 "A flag rule has four parts, OID|type|value|flag, and this one " + std::to_string(rule.fields) + ".",
                 hasBars ? "An OID with bars in it needs a condition: IF name EQ value THEN action."
                         : "Write OID|type|value|flag.");
  });
}

void FlagUnknown(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kFlag, [&](const RuleText& rule, const WideString& attribute) {
    if (rule.fields != 4 || rules::FindFlag(rule.flag) != nullptr) return;
    findings.Add(subject, attribute, rule.text.rfind(u'|') + 1,
                 "There is no flag " + Quoted(rule.flag) + ": the rule does nothing.",
                 MendByNearest(rule.flag, NamesOf(rules::Flags()),
                               "Take Display, NoDisplay, Blank, NoEdit, CheckMark or Refresh."));
  });
}

void RuleOidUnknown(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kFlag, [&](const RuleText& rule, const WideString& attribute) {
    const WideString& oid = rule.comparisons.front().name;
    if (rule.fields != 4 || IsKnownOid(subject.All(), oid)) return;
    const bool isName = !subject.All().WithName(oid).empty();
    findings.Add(subject, attribute,
                 std::string(isName ? "A flag rule does not know display names: nothing has the OID "
                                    : "Neither an entry nor the device has the OID ") +
                     Quoted(oid) + ", and the rule compares an empty text.",
                 isName ? "Write the property's OID." : "Write the OID of a property.");
  });
}

void RuleNameUnknown(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kCondition, [&](const RuleText& rule, const WideString& attribute) {
    for (const RuleComparison& comparison : rule.comparisons) {
      if (!subject.All().WithName(comparison.name).empty()) continue;
      std::vector<WideStringView> names;
      for (const Subject& other : subject.All().Subjects()) {
        if (findings.AreMany()) break;
        if (other.IsProperty()) names.push_back(other.Get(Attribute::kDisplayName));
      }
      const bool isOid = !subject.All().WithOid(comparison.name).empty();
      findings.Add(
          subject, attribute, PlaceOf(rule, comparison.name),
          (isOid ? "A condition does not know OIDs: no property is called " : std::string("No property is called ")) +
              Quoted(comparison.name) + ", and the rule compares an empty text.",
          isOid ? "Write the property's DisplayName, in quotes if it has blanks."
                : MendByNearest(comparison.name, names, "Write the DisplayName of a property."));
    }
  });
}

void RuleNameTwice(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kCondition, [&](const RuleText& rule, const WideString& attribute) {
    std::vector<WideStringView> said;
    for (const RuleComparison& comparison : rule.comparisons) {
      const auto named = subject.All().WithName(comparison.name);
      if (named.size() < 2) continue;
      if (std::find(said.begin(), said.end(), comparison.name) != said.end()) continue;
      said.push_back(comparison.name);
      findings.Add(subject, attribute, PlaceOf(rule, comparison.name),
                   std::to_string(named.size()) + " properties are called " + Quoted(comparison.name) +
                       "; the rule means the last one, " + base::ToUtf8(Entries::PathOf(named.back()->MenuEntry())) +
                       ".",
                   "Give the property that is meant a DisplayName of its own.");
    }
  });
}

void EmptyInCondition(const Subject& subject, Findings& findings) {
  ForEachRule(subject, RuleText::Form::kCondition, [&](const RuleText& rule, const WideString& attribute) {
    for (const RuleComparison& comparison : rule.comparisons) {
      if (!base::EqualsIgnoringCase(comparison.wanted, u"Empty")) continue;
      findings.Add(subject, attribute, PlaceOf(rule, comparison.wanted),
                   "A condition compares with the word \"" + base::ToUtf8(comparison.wanted) +
                       "\"; only in a flag rule does it stand for no value.",
                   "Compare with \"\", or write a flag rule.");
    }
  });
}

void CheckMarkOverName(const Subject& subject, Findings& findings) {
  const WideString name = subject.All().Source().Symbols().TextOf(subject.Get(Attribute::kDisplayName));
  if (name.empty() || name.front() == u' ') return;
  for (const RuleText& rule : subject.Rules()) {
    for (const WideString* action : {&rule.flag, &rule.thenAction, &rule.elseAction}) {
      const rules::ActionRow* known = rules::FindAction(*action);
      const bool isMark =
          known != nullptr && (known->effect == rules::Effect::kMark || known->effect == rules::Effect::kUnmark);
      if (!isMark || rule.form == RuleText::Form::kMalformed) continue;
      findings.Add(subject, NumberedName(Attribute::kDependency, rule.number), PlaceOf(rule, *action),
                   "The check mark takes the place of the first character of " + Quoted(name) + ".",
                   "Begin the DisplayName with a blank.");
      return;
    }
  }
}

void ChoiceOfRuleUnlisted(const Subject& subject, Findings& findings) {
  if (!subject.IsProperty() || !subject.HasChoiceList()) return;
  ForEachRule(subject, RuleText::Form::kCondition, [&](const RuleText& rule, const WideString& attribute) {
    for (const WideString* action : {&rule.thenAction, &rule.elseAction}) {
      const auto narrowed = rules::ReadChoicesAction(*action);
      const auto otherwise = rules::ReadChoicesAction(action == &rule.thenAction ? rule.elseAction : rule.thenAction);
      // A fallback of the other branch replaces what is none of its choices.
      if (!narrowed || (otherwise && !otherwise->fallback.empty())) continue;
      const WideString list = subject.All().Source().Symbols().TextOf(narrowed->choices);
      const values::ChoiceFormat choices(list, values::KeyMode::kText);
      for (const auto& choice : choices.Entries()) {
        if (subject.IsChoice(choice.key)) continue;
        findings.Add(subject, attribute, PlaceOf(rule, *action),
                     "The choice " + Quoted(choice.text) + " has the key " + Quoted(choice.key) +
                         ", which the ChoiceFmt of the property lacks: when the rule no longer holds, its line shows " +
                         Quoted(choice.key) + ".",
                     "Write the key that ChoiceFmt has for it, or add the choice there.");
      }
    }
  });
}

void FallbackNotAChoice(const Subject& subject, Findings& findings) {
  ForEachAction(subject, [&](const RuleText& rule, const WideString& attribute, const WideString& action) {
    const auto narrowed = rules::ReadChoicesAction(action);
    if (!narrowed || narrowed->fallback.empty()) return;
    const WideString list = subject.All().Source().Symbols().TextOf(narrowed->choices);
    const values::ChoiceFormat choices(list, values::KeyMode::kText);
    if (choices.IndexOfKey(narrowed->fallback)) return;
    findings.Add(subject, attribute, PlaceOf(rule, action),
                 "The fallback " + Quoted(narrowed->fallback) +
                     " is none of the choices that it is to stand for: it is stored anew whenever the page is shown.",
                 "Write the key of one of the choices behind the colon.");
  });
}

void FallbackNameShared(const Subject& subject, Findings& findings) {
  ForEachAction(subject, [&](const RuleText& rule, const WideString& attribute, const WideString& action) {
    const auto narrowed = rules::ReadChoicesAction(action);
    if (!narrowed || narrowed->fallback.empty()) return;
    const auto named = subject.All().WithName(subject.Get(Attribute::kDisplayName));
    if (named.size() < 2) return;
    findings.Add(subject, attribute, PlaceOf(rule, action),
                 "A fallback looks at the value of the property of this DisplayName, and " +
                     std::to_string(named.size()) + " have it: it may be stored over a good value.",
                 "Give this property a DisplayName of its own.");
  });
}

void ChoicesOfNoProperty(const Subject& subject, Findings& findings) {
  if (subject.IsProperty()) return;
  ForEachAction(subject, [&](const RuleText& rule, const WideString& attribute, const WideString& action) {
    if (!rules::ReadChoicesAction(action)) return;
    findings.Add(subject, attribute, PlaceOf(rule, action), "Only a property has choices to narrow: this does nothing.",
                 "Put the rule into the property.");
  });
}

}  // namespace authoring::checks
