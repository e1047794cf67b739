// A trial whose rules are followed by one listener now and by another then.
#pragma once

#include "authoring/trial.h"
#include "rules/rule_listener.h"

namespace authoring {

// Hands on what it is told.
class ListenerSlot final : public rules::RuleListener {
 public:
  rules::RuleListener* listener = nullptr;  // null: nobody listens

  void OnRule(int number, WideStringView text) override {
    if (listener != nullptr) listener->OnRule(number, text);
  }
  void OnOperand(const rules::OperandReading& reading) override {
    if (listener != nullptr) listener->OnOperand(reading);
  }
  void OnComparison(const rules::Comparison& comparison) override {
    if (listener != nullptr) listener->OnComparison(comparison);
  }
  void OnAction(const rules::RuleAction& action) override {
    if (listener != nullptr) listener->OnAction(action);
  }
  void OnChoices(const model::MenuItem& item, WideStringView choices, WideStringView fallback) override {
    if (listener != nullptr) listener->OnChoices(item, choices, fallback);
  }
};

struct FollowedTrial {
  explicit FollowedTrial(const Configuration& configuration) : trial(configuration, &slot) {}

  // Runs all rules of an item; `listener` follows them.
  void RunRules(model::MenuItem& item, rules::RuleListener& listener) {
    slot.listener = &listener;
    trial.Rules().dependencies.EvaluateDependencies(item);
    slot.listener = nullptr;
  }

  ListenerSlot slot;
  Trial trial;
};

}  // namespace authoring
