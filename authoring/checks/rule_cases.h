// The values on which rules depend, and all cases of them.
#pragma once

#include "authoring/checks/followed_trial.h"
#include "authoring/checks/survey.h"

#include <functional>
#include <string>
#include <vector>

namespace authoring {

// How many cases one line, or one menu, is gone through; beyond that nothing is decided.
inline constexpr std::size_t kMostCases = 4096;

// Something that rules read, and the values of it that matter.
struct RuleVariable {
  WideString oid;
  std::string name;                                // for people
  values::PropertyDescriptor* property = nullptr;  // of a field without an entry: its command
  std::int32_t field = 0;                          // of such a field: its number
  std::vector<WideString> values;
  std::optional<WideString> other;  // the one of the values that stands for all others
  WideString record;                // of a command, as it was

  std::string Said(const WideString& value) const;
};

// All variables that the rules of some items read.
class RuleCases {
 public:
  RuleCases(const Survey& survey, FollowedTrial& trial) : survey_(survey), trial_(trial) {}

  // Adds what the item's rules read; the item's own value too when `ownValue` is on.
  void Add(model::MenuItem& item, bool ownValue);

  const std::vector<RuleVariable>& Variables() const { return variables_; }
  // The variable that a rule's operand stands for; null for what has no value at all.
  const RuleVariable* Find(WideStringView oid) const;
  // How many cases there are; more than `most` is `most` + 1.
  std::size_t Count(std::size_t most) const;

  // Gives all variables the values of each case in turn, until visit() answers false.
  void ForEach(const std::function<bool()>& visit);
  // The number of the variable's value in the present case.
  std::size_t Present(std::size_t variable) const { return present_[variable]; }
  // The present case in words: "Light = 0, Mode = any other value".
  std::string Said() const;

 private:
  struct Wanted {
    WideString oid;
    WideString value;
  };
  RuleVariable& Variable(WideStringView name, WideStringView oid, values::PropertyDescriptor* property, bool isField);
  void AddValue(RuleVariable& variable, const WideString& value) const;
  void AddValues(RuleVariable& variable, const std::vector<WideString>& wanted) const;
  bool AddKnownValues(RuleVariable& variable, const Subject& subject, const std::vector<WideString>& wanted) const;
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
