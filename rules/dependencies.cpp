#include "rules/dependencies.h"

#include "base/format.h"
#include "base/string_table.h"
#include "model/entry_kind.h"
#include "rules/rule_tokens.h"
#include "values/choice_format.h"
#include "values/shown_value.h"

namespace rules {
namespace {

constexpr WideStringView kFirstRule = u"Dependency";
constexpr char16_t kCheckMark = u'\u221A';

}  // namespace

bool Dependencies::EvaluateDependencies(model::MenuItem& item) {
  const auto tree = context_.model.Tree();  // stays while a message is shown
  const config::ConfigKey* node = item.Key();
  if (node == nullptr) return true;
  item.SetState(model::DisplayState::kNormal);
  return Evaluate(&item, *node);
}

bool Dependencies::Evaluate(model::MenuItem* item, const config::ConfigKey& node) {
  bool shown = true;
  if (context_.listener != nullptr) context_.listener->OnNode(node, item);
  WideStringView rule = node.Value(kFirstRule);
  for (int number = 1; !rule.empty(); ++number) {
    if (context_.listener != nullptr) context_.listener->OnRule(number - 1, rule);
    if (!EvaluateRule(item, rule) && !EvaluateFlagRule(item, node, rule)) shown = false;
    rule = node.Value(base::Format(u"Dependency%d", number));
  }
  return shown;
}

bool Dependencies::EvaluateRule(model::MenuItem* item, WideStringView rule) {
  const std::optional<WideString> action = ChooseAction(rule, operands_, context_.listener);
  if (!action) return false;
  ExecuteRuleAction(item, *action);
  return true;
}

bool Dependencies::EvaluateFlagRule(model::MenuItem* item, const config::ConfigKey& node, WideStringView rule) {
  const FlagRule parts = ReadFlagRule(rule);
  const WideString value = operands_.GetOperandValue(parts.name, parts.type, &node);
  const bool matches = value == parts.wanted;
  if (context_.listener != nullptr) {
    context_.listener->OnComparison(
        {Comparison::Join::kFirst, parts.name, value, parts.wanted, true, true, matches, matches});
    context_.listener->OnDecided(false, matches);
  }

  const FlagRow* row = FindFlag(parts.flag);
  if (row == nullptr) {
    TellAction(parts.flag, nullptr);
    return true;
  }
  const Effect effect = matches ? row->whenMatched : row->otherwise;
  TellAction(parts.flag, &effect);
  if (item != nullptr) Apply(effect, *item, {Operands::OidOfName(parts.name, &node), WideString(parts.type)});
  return effect != Effect::kHide && effect != Effect::kBlank;
}

void Dependencies::ExecuteRuleAction(model::MenuItem* item, WideStringView action) {
  const config::ConfigKey* node = item == nullptr ? nullptr : item->Key();
  if (node == nullptr) return;
  if (const auto choices = ReadChoicesAction(action)) {
    const Effect effect = Effect::kNothing;
    TellAction(action, &effect);
    NarrowChoices(*item, *node, *choices);
    return;
  }
  const ActionRow* row = FindAction(action);
  TellAction(action, row == nullptr ? nullptr : &row->effect);
  if (row == nullptr) return;
  Apply(row->effect, *item, {Operands::OidOfName(kNodeItself, node), WideString(node->Value(TextId::kType))});
}

// `effect` is null for a text that is no known flag or action.
void Dependencies::TellAction(WideStringView text, const Effect* effect) const {
  if (context_.listener == nullptr) return;
  context_.listener->OnAction({text, effect != nullptr, effect == nullptr ? std::nullopt : StateOf(*effect)});
}

void Dependencies::Apply(Effect effect, model::MenuItem& item, const Reading& reading) {
  if (const auto state = StateOf(effect)) item.SetState(*state);
  if (effect == Effect::kMark) Mark(item, kCheckMark);
  if (effect == Effect::kUnmark) Mark(item, u' ');
  if (effect == Effect::kRefresh) Refresh(item, reading);
}

void Dependencies::Mark(model::MenuItem& item, char16_t mark) {
  item.SetFirstColumn(mark);
  context_.shell.LineChanged(item);
}

// A line of the first menu, which shows no value before the whole model is there: only then it is known what may be
// shown.
bool Dependencies::AwaitsItsProperty(const model::MenuItem& item) const {
  return item.Descriptor() == nullptr && item.Key() != nullptr && !model::OidOf(*item.Key()).empty();
}

void Dependencies::Refresh(model::MenuItem& item, const Reading& reading) {
  if (reading.oid.empty() || values::IsPseudoOid(reading.oid) || AwaitsItsProperty(item)) return;
  WideString text;
  if (const WideString command = operands_.CommandOf(reading.oid); command.empty()) {
    text = items_.Reread(reading.oid, reading.type);
  } else {
    items_.Reread(command, WideString(LoadText(TextId::kReaderCmd)));
    text = operands_.ValueOf(reading.oid, reading.type);
  }
  if (const auto* property = context_.model.FindDescriptor(reading.oid)) {
    text = context_.model.ShownValue(*property);
  } else {  // no secret stands on a line in clear
    text = values::MaskedText(reading.type, text);
    if (item.Descriptor() != nullptr) text = values::MaskedText(*item.Descriptor(), text);
  }
  item.SetSuffix(base::Format(LoadText(TextId::kValueSuffixFormat), text));
  context_.shell.LineChanged(item);
}

// Whether the property of the item's name has one of the choices.
bool Dependencies::IsChosen(const model::MenuItem& item, const values::PropertyDescriptor& property) {
  const values::ChoiceFormat choices(property.ChoiceText(), values::KeyMode::kText);
  return choices.IndexOfKey(operands_.ResolveOperand(item.DisplayName())).has_value();
}

void Dependencies::NarrowChoices(model::MenuItem& item, const config::ConfigKey& node, const ChoicesAction& choices) {
  values::PropertyDescriptor* property = item.Descriptor();
  if (property == nullptr) return;
  items_.SetItemChoices(*property, choices.choices);
  const bool stores = !choices.fallback.empty() && !IsChosen(item, *property);
  if (context_.listener != nullptr) {
    context_.listener->OnChoices(item, choices.choices, stores ? choices.fallback : WideStringView());
  }
  if (!stores) return;
  items_.CorrectValue(WideString(node.Value(TextId::kOid)), WideString(node.Value(TextId::kType)),
                      WideString(choices.fallback));
}

}  // namespace rules
