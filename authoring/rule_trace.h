// What the rules saw and did when they last ran, kept for an explanation.
#pragma once

#include "rules/rule_listener.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace authoring {

struct SeenOperand {
  WideString name;  // as the rule has it
  WideString oid;   // empty: the name stands for nothing
  WideString value;
  rules::OperandOrigin origin = rules::OperandOrigin::kNowhere;
  WideString property = {};  // its name, of a field that of its command
  WideString choice = {};    // the value's text
  WideString shown = {};     // the value, or stars for a secret
};

struct SeenComparison {
  rules::Comparison::Join join = rules::Comparison::Join::kFirst;
  SeenOperand operand;
  WideString wanted;
  bool wantsEqual = true;
  bool exact = false;
  bool holds = false;
  bool holdsSoFar = false;
};

struct SeenRule {
  enum class Form { kCondition, kFlag, kMalformed };

  int number = 0;  // 0: `Dependency`, 1: `Dependency1` and so on
  WideString text;
  Form form = Form::kFlag;
  std::vector<SeenComparison> comparisons;  // none of a malformed rule
  bool holds = false;
  WideString action;  // empty: it asked for nothing
  bool knownAction = false;
  std::optional<model::DisplayState> state;  // that it gave the line
  std::optional<WideString> choices;         // to which it narrowed them
  WideString fallback;                       // that it stored; empty: none

  WideString Attribute() const;  // "Dependency2"
};

struct SeenWireless {
  rules::WirelessChange::Kind kind = rules::WirelessChange::Kind::kChoices;
  WideString oid;
  WideString text;
  rules::wireless::Settings settings;
};

class RuleTrace final : public rules::RuleListener {
 public:
  void Clear();

  // Of the item of this key, empty when its rules have not run.
  const std::vector<SeenRule>& RulesOf(const config::ConfigKey* key) const;
  // What the wireless rules did since the rules of a line last ran.
  const std::vector<SeenWireless>& Wireless() const { return wireless_; }

  void OnNode(const config::ConfigKey& node, const model::MenuItem* item) override;
  void OnRule(int number, WideStringView text) override;
  void OnOperand(const rules::OperandReading& reading) override;
  void OnComparison(const rules::Comparison& comparison) override;
  void OnDecided(bool isCondition, bool holds) override;
  void OnAction(const rules::RuleAction& action) override;
  void OnChoices(const model::MenuItem& item, WideStringView choices, WideStringView fallback) override;
  void OnWireless(const rules::WirelessChange& change) override;

 private:
  SeenRule* Current() { return current_ == nullptr || current_->empty() ? nullptr : &current_->back(); }

  std::unordered_map<const config::ConfigKey*, std::vector<SeenRule>> rules_;
  std::vector<SeenRule>* current_ = nullptr;
  SeenOperand operand_;
  std::vector<SeenWireless> wireless_;
};

}  // namespace authoring
