#include "rules/dependencies.h"

#include "base/format.h"
#include "base/string_table.h"
#include "rules/rule_tokens.h"
#include "values/choice_format.h"
#include "values/shown_value.h"

#include <algorithm>

namespace rules {
namespace {

constexpr WideStringView kFirstRule = u"Dependency";
constexpr char16_t kCheckMark = u'\u221A';
constexpr WideStringView kChoicesAction = u"ChoiceFmt=";

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
  static constexpr FlagRow kFlags[] = {
      {u"Display", Effect::kShow, Effect::kHide},   {u"NoDisplay", Effect::kHide, Effect::kNothing},
      {u"Blank", Effect::kBlank, Effect::kNothing}, {u"CheckMark", Effect::kMark, Effect::kUnmark},
      {u"NoEdit", Effect::kLock, Effect::kNothing}, {u"Refresh", Effect::kRefresh, Effect::kRefresh},
  };

  const WideStringView name = NextRuleField(rule);
  const WideStringView type = NextRuleField(rule);
  WideStringView wanted = NextRuleField(rule);
  const WideStringView flag = NextRuleField(rule);
  if (base::EqualsIgnoringCase(wanted, kEmptyName)) wanted = {};
  const WideString value = operands_.GetOperandValue(name, type, &node);
  const bool matches = value == wanted;
  if (context_.listener != nullptr) {
    context_.listener->OnComparison({Comparison::Join::kFirst, name, value, wanted, true, true, matches, matches});
    context_.listener->OnDecided(false, matches);
  }

  const auto* row = std::find_if(std::begin(kFlags), std::end(kFlags),
                                 [&](const FlagRow& known) { return base::EqualsIgnoringCase(known.name, flag); });
  if (row == std::end(kFlags)) {
    TellAction(flag, nullptr);
    return true;
  }
  const Effect effect = matches ? row->whenMatched : row->otherwise;
  TellAction(flag, &effect);
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
    const Effect effect = Effect::kNothing;
    TellAction(action, &effect);
    NarrowChoices(*item, *node, action.substr(kChoicesAction.size()));
    return;
  }
  const auto* row = std::find_if(std::begin(kActions), std::end(kActions),
                                 [&](const ActionRow& known) { return base::EqualsIgnoringCase(known.name, action); });
  TellAction(action, row == std::end(kActions) ? nullptr : &row->effect);
  if (row == std::end(kActions)) return;
  Apply(row->effect, *item, {Operands::OidOfName(kNodeItself, node), WideString(node->Value(TextId::kType))});
}

std::optional<model::DisplayState> Dependencies::StateOf(Effect effect) {
  switch (effect) {
    case Effect::kShow: return model::DisplayState::kNormal;
    case Effect::kHide: return model::DisplayState::kNotDisplayed;
    case Effect::kBlank: return model::DisplayState::kBlank;
    case Effect::kLock: return model::DisplayState::kNoEdit;
    default: return std::nullopt;
  }
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

void Dependencies::Refresh(model::MenuItem& item, const Reading& reading) {
  if (reading.oid.empty() || values::IsPseudoOid(reading.oid)) return;
  WideString text;
  if (const WideString command = operands_.CommandOf(reading.oid); command.empty()) {
    text = items_.Reread(reading.oid, reading.type);
  } else {
    items_.Reread(command, WideString(LoadText(TextId::kReaderCmd)));
    text = operands_.ValueOf(reading.oid, reading.type);
  }
  if (const auto* property = context_.model.FindDescriptor(reading.oid)) {
    text = context_.model.ShownValue(*property);
  } else if (item.Descriptor() != nullptr) {
    text = values::MaskedText(*item.Descriptor(), text);  // no secret stands on a line in clear
  }
  item.SetSuffix(base::Format(LoadText(TextId::kValueSuffixFormat), text));
  context_.shell.LineChanged(item);
}

// Whether the property of the item's name has one of the choices.
bool Dependencies::IsChosen(const model::MenuItem& item, const values::PropertyDescriptor& property) {
  const values::ChoiceFormat choices(property.ChoiceText(), values::KeyMode::kText);
  return choices.IndexOfKey(operands_.ResolveOperand(item.DisplayName())).has_value();
}

// text: CHOICES [":" FALLBACK], perhaps in quotes.
void Dependencies::NarrowChoices(model::MenuItem& item, const config::ConfigKey& node, WideStringView text) {
  values::PropertyDescriptor* property = item.Descriptor();
  if (property == nullptr) return;
  text.remove_prefix(std::min(text.find_first_not_of(u'"'), text.size()));
  text = text.substr(0, text.find(u'"'));
  const std::size_t colon = text.find(u':');
  const WideStringView choiceText = text.substr(0, colon);
  items_.SetItemChoices(*property, choiceText);
  const WideStringView fallback = colon == WideStringView::npos ? WideStringView() : text.substr(colon + 1);
  const bool stores = !fallback.empty() && !IsChosen(item, *property);
  if (context_.listener != nullptr) {
    context_.listener->OnChoices(item, choiceText, stores ? fallback : WideStringView());
  }
  if (!stores) return;
  items_.CorrectValue(WideString(node.Value(TextId::kOid)), WideString(node.Value(TextId::kType)),
                      WideString(fallback));
}

}  // namespace rules
