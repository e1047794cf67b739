#include "authoring/explanation.h"

#include "authoring/items.h"
#include "authoring/remarks.h"
#include "authoring/verdict.h"
#include "authoring/wishes.h"

#include <algorithm>

namespace authoring {
namespace {

using model::MenuItem;

constexpr std::size_t kMostChoiceWishes = 8;

// The choices that the configuration gives and that are not in force now.
std::vector<WideString> MissingChoices(const values::PropertyDescriptor& fresh, const WideString& choiceText) {
  const values::ChoiceFormat all = fresh.Choices();
  const values::ChoiceFormat now(choiceText, values::KeyMode::kText);
  std::vector<WideString> missing;
  for (const auto& entry : all.Entries()) {
    const bool there = std::any_of(now.Entries().begin(), now.Entries().end(),
                                   [&](const auto& known) { return known.text == entry.text; });
    if (!there && missing.size() < kMostChoiceWishes) missing.push_back(entry.text);
  }
  return missing;
}

std::vector<Wish> WishesFor(const Explanation& explanation, const std::vector<WideString>& missing) {
  std::vector<Wish> wishes;
  const Look& look = explanation.look;
  const auto has = [&](const char* id) {
    return std::any_of(explanation.remarks.begin(), explanation.remarks.end(),
                       [id](const Remark& remark) { return remark.id == id; });
  };
  if (!look.IsShown()) {
    wishes.push_back({Wish::Goal::kShow, {}, {}, false});
  } else if (!look.available) {
    wishes.push_back({Wish::Goal::kRead, {}, {}, false});
  } else if (has("locked")) {
    wishes.push_back({Wish::Goal::kUnlock, {}, {}, false});
  }
  if (!look.IsShown()) return wishes;
  for (const WideString& text : missing) wishes.push_back({Wish::Goal::kChoice, text, {}, false});
  return wishes;
}

// A setting that the device does not know would show with any value.
void AddOwnValue(const Trial& trial, const MenuItem& item, std::vector<Lever>& levers) {
  const values::PropertyDescriptor* property = item.Descriptor();
  if (property == nullptr || property->IsAvailable()) return;
  const auto field = property->GetCommandField();
  const WideString oid = field ? field->commandOid : property->GetOID();
  const bool known = std::any_of(levers.begin(), levers.end(), [&](const Lever& lever) { return lever.oid == oid; });
  if (known || oid.empty()) return;
  const values::ChoiceFormat choices = property->Choices();
  const WideStringView fallback = property->Attributes().Get(TextId::kDefVal);
  WideString value = !fallback.empty() ? WideString(fallback) : WideString(u"1");
  if (fallback.empty() && choices.Count() > 0) value = choices.Entries().front().key;
  if (trial.Model().FindDescriptor(oid) != nullptr) levers.push_back({oid, {}, {std::move(value)}});
}

std::vector<Verdict> HiddenLinesWhenShown(Trial& trial, RuleTrace& trace, MenuItem& menu) {
  if (menu.Parent() == nullptr) {
    trial.Enter(menu);
  } else {
    trial.Open(menu);
  }
  return HiddenLines(trace, menu);
}

}  // namespace

Explanation Explain(Trial& trial, RuleTrace& trace, const ItemPlace& place, const Tried& tried) {
  Explanation explanation;
  trial.Rebuild();
  trace.Clear();
  MenuItem* item = ItemAtPlace(trial.Model(), place);
  if (item == nullptr) return explanation;

  RulesThatCount counting;
  explanation.look = LookAt(trial, *item, [&](const model::MenuItem& menu, bool canBeOpened) {
    Verdict verdict = VerdictOf(trace, menu);
    counting.Add(verdict);
    if (!canBeOpened) explanation.closedMenus.push_back(std::move(verdict));
  });
  explanation.line = VerdictOf(trace, *item);
  counting.Add(explanation.line);
  explanation.oid = OidOf(*item);
  if (const auto* key = item->Key()) explanation.type = key->Value(TextId::kType);
  explanation.isMenu = !item->IsLeaf();
  explanation.remarks = RemarksOn(trial, *item, explanation);

  // All that is looked up in the fresh model, as no rule has touched it.
  trial.Rebuild();
  item = ItemAtPlace(trial.Model(), place);
  std::vector<WideString> missing;
  if (item->Descriptor() != nullptr) missing = MissingChoices(*item->Descriptor(), explanation.look.choiceText);
  explanation.wishes = WishesFor(explanation, missing);
  const Survey survey(trial.Source());
  std::vector<Lever> levers = LeversOf(survey, trial, counting.rules, counting.wireless);
  AddOwnValue(trial, *item, levers);
  FindWays(trial, place, levers, explanation.wishes, tried);

  trial.Rebuild();
  item = ItemAtPlace(trial.Model(), place);
  explanation.keys = trial.KeysTo(*item);
  if (explanation.isMenu && explanation.look.IsShown()) {
    explanation.hiddenLines = HiddenLinesWhenShown(trial, trace, *item);
  }
  trial.Rebuild();
  return explanation;
}

void AddHiddenBeside(Trial& trial, RuleTrace& trace, const ItemPlace& place, Explanation& explanation) {
  trial.Rebuild();
  MenuItem* item = ItemAtPlace(trial.Model(), place);
  if (item == nullptr || item->Parent() == nullptr) return;
  explanation.hiddenBeside = HiddenLinesWhenShown(trial, trace, *item->Parent());
  trial.Rebuild();
}

}  // namespace authoring
