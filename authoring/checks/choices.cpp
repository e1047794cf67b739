// Checks of choice lists.
#include "authoring/checks/lists.h"

#include "authoring/checks/repeats.h"
#include "base/number.h"
#include "base/utf8.h"
#include "values/attributes.h"
#include "values/range.h"

namespace authoring::checks {
namespace {

using Choice = values::ChoiceFormat::Entry;

// A list that cannot be looked up is another slip.
const std::vector<Choice>& EntriesOf(const Subject& subject) {
  static const std::vector<Choice> kNone;
  if (!subject.Has(Attribute::kChoiceFmt) || subject.ChoiceText() == values::kUnresolved) return kNone;
  return subject.Choices().Entries();
}

// No list has its first "#" behind a bar: what has none at all is the name of a symbol.
bool HasPairs(const Subject& subject) { return subject.ChoiceText().find(u'#') != WideStringView::npos; }

}  // namespace

void ChoiceKeyTwice(const Subject& subject, Findings& findings) {
  const bool isInteger = subject.IsInteger();
  std::vector<const Choice*> keyed;
  keyed.reserve(EntriesOf(subject).size());
  for (const Choice& entry : EntriesOf(subject)) {
    // What is no key at all has been said to be none.
    const bool isNone = entry.key.empty() ? !HasPairs(subject) : isInteger && !base::FindLong(entry.key);
    if (!isNone) keyed.push_back(&entry);
  }
  const auto report = [&](const Choice* first, const Choice* again) {
    findings.Add(subject, Attribute::kChoiceFmt,
                 "The key " + Quoted(again->key) + " stands for " + Quoted(first->text) + " and for " +
                     Quoted(again->text) + ": the line shows " + Quoted(isInteger ? again->text : first->text) +
                     " for both.",
                 "Give each choice a key of its own.");
  };
  // As the property compares keys.
  if (isInteger) {
    ForEachRepeated(
        keyed, [](const Choice* entry) { return entry->number; }, report);
  } else {
    ForEachRepeated(
        keyed, [](const Choice* entry) { return WideStringView(entry->key); }, report);
  }
}

void ChoiceTextTwice(const Subject& subject, Findings& findings) {
  const auto textOf = [](const Choice& entry) { return WideStringView(entry.text); };
  ForEachRepeated(EntriesOf(subject), textOf, [&](const Choice& first, const Choice& again) {
    if (first.key == again.key) return;
    findings.Add(
        subject, Attribute::kChoiceFmt,
        "Two choices read " + Quoted(again.text) + ": whichever is chosen, the key " + Quoted(first.key) + " is saved.",
        "Give each choice a text of its own.");
  });
}

void ChoiceWithoutSign(const Subject& subject, Findings& findings) {
  if (EntriesOf(subject).empty() || !HasPairs(subject)) return;
  for (WideStringView rest = subject.ChoiceText(); !rest.empty();) {
    const std::size_t bar = rest.find(u'|');
    const WideStringView choice = rest.substr(0, bar);
    rest = bar == WideStringView::npos ? WideStringView() : rest.substr(bar + 1);
    if (choice.find(u'#') != WideStringView::npos) continue;
    findings.Add(subject, Attribute::kChoiceFmt,
                 "The choice " + Quoted(choice) + " has no \"#\": it is a text whose key is " +
                     (subject.IsInteger() ? "0." : "empty."),
                 "Write key#text.");
  }
}

void ChoiceKeyNoNumber(const Subject& subject, Findings& findings) {
  if (!subject.IsInteger()) return;
  for (const Choice& entry : EntriesOf(subject)) {
    if (entry.key.empty() || base::FindLong(entry.key)) continue;
    findings.Add(subject, Attribute::kChoiceFmt,
                 "The key " + Quoted(entry.key) + " of an Integer is no number and counts as 0.",
                 "Give the choice a number, or make the Type Octet String.");
  }
}

void ChoiceOutOfRange(const Subject& subject, Findings& findings) {
  const WideStringView range = subject.Resolved(Attribute::kRange);
  if (range.empty() || range == values::kUnresolved) return;
  for (const Choice& entry : EntriesOf(subject)) {
    if (values::InRange(entry.number, range)) continue;
    findings.Add(subject, Attribute::kChoiceFmt,
                 "The choice " + Quoted(entry.text) + " has a key outside the Range " + Quoted(range) +
                     ": it can be chosen and is then refused.",
                 "Widen the Range, or leave it out: choices need none.");
  }
}

void ChoiceTooLong(const Subject& subject, Findings& findings) {
  const std::int32_t most = base::ToLong(subject.Get(Attribute::kMaxChars));
  if (most <= 0) return;
  for (const Choice& entry : EntriesOf(subject)) {
    if (entry.key.size() <= static_cast<std::size_t>(most)) continue;
    findings.Add(subject, Attribute::kMaxChars,
                 "The key " + Quoted(entry.key) + " is longer than MaxChars, which does not hold where one chooses.",
                 "Leave MaxChars out, or make it as long as the longest key.");
  }
}

void SymbolMissing(const Subject& subject, Findings& findings) {
  if (!subject.Has(Attribute::kChoiceFmt) || subject.ChoiceText() == values::kUnresolved || HasPairs(subject)) return;
  const WideStringView text = subject.ChoiceText();
  findings.Add(subject, Attribute::kChoiceFmt,
               Quoted(text) + " is no symbol of the registry and no list: it becomes a single choice without a key.",
               text.find(u'|') == WideStringView::npos ? "Give the SYMBOLTABLE that symbol, or write key#text|key#text."
                                                       : "Write key#text|key#text.");
}

}  // namespace authoring::checks
