#include "rules/dependencies.h"

#include "base/format.h"
#include "base/string_table.h"
#include "values/choice_format.h"
#include "values/shown_value.h"

#include <algorithm>

namespace rules {
namespace {

constexpr WideStringView kFirstRule = u"Dependency";
constexpr char16_t kCheckMark = u'\u221A';
constexpr WideStringView kChoicesAction = u"ChoiceFmt=";

// Removes the text before the next bar, or all of it.
WideStringView TakeField(WideStringView& rest) {
  const std::size_t bar = rest.find(u'|');
  const WideStringView field = rest.substr(0, bar);
  rest = bar == WideStringView::npos ? WideStringView() : rest.substr(bar + 1);
  return field;
}

}  // namespace

struct Dependencies::FlagRow {
  WideStringView name;
  Effect whenMatched;
  Effect otherwise;
};

struct Dependencies::ActionRow {
  WideStringView name;
  Effect effect;
};

bool Dependencies::EvaluateDependencies(model::MenuItem& item) {
  const auto tree = context_.model.Tree();  // stays while a message is shown
  const config::ConfigKey* node = tree ? tree->Find(item.Path()) : nullptr;
  if (node == nullptr) return true;
  item.SetState(model::DisplayState::kNormal);
  return Evaluate(&item, *node);
}

bool Dependencies::Evaluate(model::MenuItem* item, const config::ConfigKey& node) {
  bool shown = true;
  WideStringView rule = node.Value(kFirstRule);
  for (int number = 1; !rule.empty(); ++number) {
    if (!EvaluateRule(item, rule) && !EvaluateFlagRule(item, node, rule)) shown = false;
    rule = node.Value(base::Format(u"Dependency%d", number));
  }
  return shown;
}

bool Dependencies::EvaluateRule(model::MenuItem* item, WideStringView rule) {
  const std::optional<WideString> action = ChooseAction(rule, operands_);
  if (!action) return false;
  ExecuteRuleAction(item, *action);
  return true;
}

bool Dependencies::EvaluateFlagRule(model::MenuItem* item, const config::ConfigKey& node, WideStringView rule) {
  static constexpr FlagRow kFlags[] = {
      {u"Display", Effect::kShow, Effect::kHide},   {u"NoDisplay", Effect::kHide, Effect::kNothing},
      {u"Blank", Effect::kBlank, Effect::kNothing}, {u"CheckMark", Effect::kMark, Effect::kUnmark},
      {u"NoEdit", Effect::kLock, Effect::kNothing}, {u"Refresh", Effect::kRefresh, Effect::kRefresh},
  };

  const WideStringView name = TakeField(rule);
  const WideStringView type = TakeField(rule);
  WideStringView wanted = TakeField(rule);
  const WideStringView flag = TakeField(rule);
  if (base::EqualsIgnoringCase(wanted, kEmptyName)) wanted = {};
  const bool matches = operands_.GetOperandValue(name, type, &node) == wanted;

  const auto* row = std::find_if(std::begin(kFlags), std::end(kFlags),
                                 [&](const FlagRow& known) { return base::EqualsIgnoringCase(known.name, flag); });
  if (row == std::end(kFlags)) return true;
  const Effect effect = matches ? row->whenMatched : row->otherwise;
  if (item != nullptr) Apply(effect, *item, {Operands::OidOfName(name, &node), WideString(type)});
  return effect != Effect::kHide && effect != Effect::kBlank;
}

void Dependencies::ExecuteRuleAction(model::MenuItem* item, WideStringView action) {
  static constexpr ActionRow kActions[] = {
      {u"Display", Effect::kShow},    {u"NoDisplay", Effect::kHide},     {u"Blank", Effect::kBlank},
      {u"CheckMark", Effect::kMark},  {u"UnCheckMark", Effect::kUnmark}, {u"NoEdit", Effect::kLock},
      {u"Refresh", Effect::kRefresh},
  };

  const config::ConfigKey* node = item == nullptr ? nullptr : context_.model.FindKey(item->Path());
  if (node == nullptr) return;
  if (base::EqualsIgnoringCase(action.substr(0, kChoicesAction.size()), kChoicesAction)) {
    NarrowChoices(*item, *node, action.substr(kChoicesAction.size()));
    return;
  }
  const auto* row = std::find_if(std::begin(kActions), std::end(kActions),
                                 [&](const ActionRow& known) { return base::EqualsIgnoringCase(known.name, action); });
  if (row == std::end(kActions)) return;
  Apply(row->effect, *item, {WideString(node->Value(TextId::kOid)), WideString(node->Value(TextId::kType))});
}

void Dependencies::Apply(Effect effect, model::MenuItem& item, const Reading& reading) {
  switch (effect) {
    case Effect::kNothing: break;
    case Effect::kShow: item.SetState(model::DisplayState::kNormal); break;
    case Effect::kHide: item.SetState(model::DisplayState::kNotDisplayed); break;
    case Effect::kBlank: item.SetState(model::DisplayState::kBlank); break;
    case Effect::kLock: item.SetState(model::DisplayState::kNoEdit); break;
    case Effect::kMark: Mark(item, kCheckMark); break;
    case Effect::kUnmark: Mark(item, u' '); break;
    case Effect::kRefresh: Refresh(item, reading); break;
  }
}

void Dependencies::Mark(model::MenuItem& item, char16_t mark) {
  item.SetFirstColumn(mark);
  context_.shell.LineChanged(item);
}

void Dependencies::Refresh(model::MenuItem& item, const Reading& reading) {
  if (reading.oid.empty() || values::IsPseudoOid(reading.oid)) return;
  WideString text = items_.Reread(reading.oid, reading.type);
  if (const auto* property = context_.model.FindDescriptor(reading.oid)) {
    text = context_.model.ShownValue(*property);
  } else if (item.Descriptor() != nullptr) {
    text = values::MaskedText(*item.Descriptor(), text);  // no secret stands on a line in clear
  }
  item.SetSuffix(base::Format(LoadText(TextId::kValueSuffixFormat), text));
  context_.shell.LineChanged(item);
}

// text: CHOICES [":" FALLBACK], perhaps in quotes.
void Dependencies::NarrowChoices(model::MenuItem& item, const config::ConfigKey& node, WideStringView text) {
  values::PropertyDescriptor* property = item.Descriptor();
  if (property == nullptr) return;
  text.remove_prefix(std::min(text.find_first_not_of(u'"'), text.size()));
  text = text.substr(0, text.find(u'"'));
  const std::size_t colon = text.find(u':');
  property->ReplaceChoices(WideString(text.substr(0, colon)));
  if (colon == WideStringView::npos) return;

  const values::ChoiceFormat choices(property->ChoiceText(), values::KeyMode::kText);
  if (choices.IndexOfKey(operands_.ResolveOperand(item.DisplayName()))) return;
  const WideStringView fallback = text.substr(colon + 1);
  items_.StoreValue(WideString(node.Value(TextId::kOid)), WideString(node.Value(TextId::kType)), WideString(fallback));
}

}  // namespace rules
