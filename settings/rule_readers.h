// Which lines of the menus look at which settings, learnt while their rules run; and what the rules did, for reasons.
#pragma once

#include "authoring/rule_trace.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace settings {

class RuleReaders final : public rules::RuleListener {
 public:
  const authoring::RuleTrace& Trace() const { return trace_; }

  // Lines whose rules have read the value of an OID, or of a field of that command, in the order in which they first
  // did.
  const std::vector<model::MenuItem*>& Of(const WideString& oid) const;

  void OnNode(const config::ConfigKey& node, const model::MenuItem* item) override;
  void OnRule(int number, WideStringView text) override { trace_.OnRule(number, text); }
  void OnOperand(const rules::OperandReading& reading) override;
  void OnComparison(const rules::Comparison& comparison) override { trace_.OnComparison(comparison); }
  void OnDecided(bool isCondition, bool holds) override { trace_.OnDecided(isCondition, holds); }
  void OnAction(const rules::RuleAction& action) override { trace_.OnAction(action); }
  void OnChoices(const model::MenuItem& item, WideStringView choices, WideStringView fallback) override {
    trace_.OnChoices(item, choices, fallback);
  }
  void OnWireless(const rules::WirelessChange& change) override { trace_.OnWireless(change); }

 private:
  struct Readers {
    std::vector<model::MenuItem*> items;
    std::unordered_set<const model::MenuItem*> known;
  };

  authoring::RuleTrace trace_;
  model::MenuItem* item_ = nullptr;  // whose rules run
  std::unordered_map<WideString, Readers> readers_;
};

// The command that an OID ("OID:number") is a field of, else the OID itself.
WideString SettingOf(WideStringView oid);

}  // namespace settings
