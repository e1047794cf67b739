// A trial whose rules are followed by one listener now and by another then.
#pragma once

#include "authoring/trial.h"
#include "rules/rule_listener.h"

#include <cstddef>
#include <utility>

namespace authoring {

// Hands on what it is told.
class ListenerSlot final : public rules::RuleListener {
 public:
  rules::RuleListener* listener = nullptr;  // null: nobody listens

  void OnNode(const config::ConfigKey& node, const model::MenuItem* item) override {
    if (listener != nullptr) listener->OnNode(node, item);
  }
  void OnRule(int number, WideStringView text) override {
    if (listener != nullptr) listener->OnRule(number, text);
  }
  void OnOperand(const rules::OperandReading& reading) override {
    if (listener != nullptr) listener->OnOperand(reading);
  }
  void OnComparison(const rules::Comparison& comparison) override {
    if (listener != nullptr) listener->OnComparison(comparison);
  }
  void OnDecided(bool isCondition, bool holds) override {
    if (listener != nullptr) listener->OnDecided(isCondition, holds);
  }
  void OnAction(const rules::RuleAction& action) override {
    if (listener != nullptr) listener->OnAction(action);
  }
  void OnChoices(const model::MenuItem& item, WideStringView choices, WideStringView fallback) override {
    if (listener != nullptr) listener->OnChoices(item, choices, fallback);
  }
  void OnWireless(const rules::WirelessChange& change) override {
    if (listener != nullptr) listener->OnWireless(change);
  }
};

struct FollowedTrial {
  explicit FollowedTrial(const Configuration& configuration) : trial(configuration, &slot) {}

  // Runs all rules of an item, which begins with the choices that the configuration gives it. `follower` follows them
  // instead of the present listener.
  void RunRules(model::MenuItem& item, rules::RuleListener& follower) {
    const config::ConfigKey* key = item.Key();
    const WideStringView choices = key == nullptr ? WideStringView() : key->Value(TextId::kChoiceFmt);
    if (item.Descriptor() != nullptr && !choices.empty()) item.Descriptor()->ReplaceChoices(WideString(choices));
    ++runs;
    rules::RuleListener* const before = std::exchange(slot.listener, &follower);
    trial.Rules().dependencies.EvaluateDependencies(item);
    slot.listener = before;
  }

  ListenerSlot slot;
  Trial trial;
  std::size_t runs = 0;  // of an item's rules, so far
};

}  // namespace authoring
