// The values on which rules depend, and all cases of them.
#pragma once

#include "authoring/checks/survey.h"
#include "authoring/followed_trial.h"
#include "authoring/values_that_matter.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace authoring {

// How many cases one line, or one menu, is gone through; beyond that nothing is decided.
inline constexpr std::size_t kMostCases = kMostMatteringValues;

// Something that rules read, and the values of it that matter.
struct RuleVariable {
  WideString oid;
  std::string name;                                // for people
  values::PropertyDescriptor* property = nullptr;  // of a field without an entry: its command
  std::int32_t field = 0;                          // of such a field: its number
  WideString record = {};                          // of a command, as it was
  std::vector<WideString> wanted = {};             // what rules compare it with
  std::vector<WideString> values = {};
  std::optional<WideString> other = {};  // the one of the values that stands for all others

  // In words: "5", "empty", "any other value".
  std::string Said(const WideString& value) const;
  // All of them, as the property holds them: "0, 1 or any other value".
  std::string AllSaid() const;
};

// All variables that the rules of some items read.
class RuleCases {
 public:
  // With `ownValues` those of the items themselves count too.
  RuleCases(const Survey& survey, FollowedTrial& trial, const std::vector<model::MenuItem*>& items, bool ownValues);

  const std::vector<RuleVariable>& Variables() const { return variables_; }
  // The variable that a rule's operand stands for; null for what has no value at all.
  const RuleVariable* Find(WideStringView oid) const;
  // How many cases there are; more than `most` is `most` + 1.
  std::size_t Count(std::size_t most) const;

  // "13 values with more than 4096 cases", where there are more than `most`.
  std::string TooManySaid(std::size_t most) const;

  // Gives all variables the values of each case in turn, until visit() answers false. The trial's own values are lost.
  void ForEach(const std::function<bool()>& visit);
  // The number of the variable's value in the present case.
  std::size_t Present(std::size_t variable) const { return present_[variable]; }
  // The present case in words: "Light = 0, Mode = any other value".
  std::string Said() const;

 private:
  void Read(model::MenuItem& item, bool ownValue);
  RuleVariable& Variable(WideStringView name, WideStringView oid, values::PropertyDescriptor* property, bool isField);
  void Put(const RuleVariable& variable, const WideString& value);

  const Survey& survey_;
  FollowedTrial& trial_;
  // With so many, each of two values or more, there are too many cases in any case.
  static constexpr std::size_t kMostVariables = 64;

  std::vector<RuleVariable> variables_;
  bool tooMany_ = false;
  std::vector<std::size_t> present_;
};

}  // namespace authoring
