// The dependency rules of a node: attributes `Dependency`, `Dependency1`, `Dependency2` and so on, which decide how its
// line is shown and edited.
#pragma once

#include "rules/item_operations.h"
#include "rules/operands.h"
#include "rules/rule_actions.h"

namespace rules {

class Dependencies {
 public:
  Dependencies(const Context& context, ItemOperations& items, Operands& operands)
      : context_(context), items_(items), operands_(operands) {}

  // Runs all rules of an item, or only takes the verdict on a key. False: a flag rule hides or blanks it.
  // An item whose key the tree does not hold is shown.
  bool EvaluateDependencies(model::MenuItem& item);
  bool EvaluateDependencies(const config::ConfigKey& node) { return Evaluate(nullptr, node); }

  // False: the text is no well-formed conditional rule, and nothing was done. `item` may be null.
  bool EvaluateRule(model::MenuItem* item, WideStringView rule);

  // Does nothing without an item or for an unknown action.
  void ExecuteRuleAction(model::MenuItem* item, WideStringView action);

 private:
  struct Reading {  // what a refresh reads
    WideString oid;
    WideString type;
  };

  bool Evaluate(model::MenuItem* item, const config::ConfigKey& node);
  bool EvaluateFlagRule(model::MenuItem* item, const config::ConfigKey& node, WideStringView rule);
  void TellAction(WideStringView text, const Effect* effect) const;
  void Apply(Effect effect, model::MenuItem& item, const Reading& reading);
  void Mark(model::MenuItem& item, char16_t mark);
  bool AwaitsItsProperty(const model::MenuItem& item) const;
  void Refresh(model::MenuItem& item, const Reading& reading);
  bool IsChosen(const model::MenuItem& item, const values::PropertyDescriptor& property);
  void NarrowChoices(model::MenuItem& item, const config::ConfigKey& node, const ChoicesAction& choices);

  Context context_;
  ItemOperations& items_;
  Operands& operands_;
};

}  // namespace rules
