#include "authoring/values_that_matter.h"

#include "base/number.h"
#include "rules/wireless_couplings.h"
#include "values/range.h"
#include "values/value_types.h"

#include <algorithm>

namespace authoring {
namespace {

using values::PropertyDescriptor;
using values::TypeCode;

class LeverMaker {
 public:
  explicit LeverMaker(const Trial& trial) : trial_(trial) {}

  // `wanted`: what a rule compares the setting with.
  void Add(const SeenOperand& operand, const WideString& wanted) {
    if (operand.oid.empty()) return;
    auto lever = std::find_if(made_.begin(), made_.end(), [&](const Made& m) { return m.lever.oid == operand.oid; });
    if (lever == made_.end()) {
      if (made_.size() == kMostLevers) return;
      made_.push_back({{operand.oid, operand.value, {}}, {}});
      lever = made_.end() - 1;
    }
    const bool known = std::find(lever->wanted.begin(), lever->wanted.end(), wanted) != lever->wanted.end();
    if (!known && lever->wanted.size() < kMostValues) {
      lever->wanted.push_back(wanted);
    }
  }

  std::vector<Lever> Take() && {
    std::vector<Lever> levers;
    for (Made& made : made_) {
      Fill(made);
      if (!made.lever.values.empty()) levers.push_back(std::move(made.lever));
    }
    return levers;
  }

 private:
  struct Made {
    Lever lever;
    std::vector<WideString> wanted;
  };

  static void AddValue(Lever& lever, const WideString& value) {
    const bool known = std::find(lever.values.begin(), lever.values.end(), value) != lever.values.end();
    if (!known && value != lever.current && lever.values.size() < kMostValues) lever.values.push_back(value);
  }

  void Fill(Made& made) const {
    const PropertyDescriptor* property = trial_.Model().FindDescriptor(made.lever.oid);
    if (property != nullptr && AddChoices(made.lever, *property)) return;
    for (const WideString& wanted : made.wanted) {
      if (property == nullptr || CanHold(*property, wanted)) AddValue(made.lever, wanted);
    }
    AddAnother(made, property);
  }

  // False: the property has no choices of its own.
  static bool AddChoices(Lever& lever, const PropertyDescriptor& property) {
    const values::ChoiceFormat choices = property.Choices();
    const bool isFlag = values::TypeCodeOf(property.Attributes().Get(TextId::kType)) == TypeCode::kBool;
    if (choices.Count() == 0 && !isFlag) return false;
    // The two texts of a flag's own list stand for 1 and 0.
    if (isFlag) {
      AddValue(lever, u"1");
      AddValue(lever, u"0");
    }
    for (const auto& entry : choices.Entries()) {
      if (isFlag) break;
      AddValue(lever, choices.Mode() == values::KeyMode::kNumeric ? base::ToText(entry.number) : entry.key);
    }
    return true;
  }

  static bool IsNumber(const PropertyDescriptor& property) {
    return values::TypeCodeOf(property.Attributes().Get(TextId::kType)) == TypeCode::kInteger;
  }

  static bool CanHold(const PropertyDescriptor& property, const WideString& value) {
    if (!IsNumber(property) || value.empty()) return true;
    const WideString range = property.Resolve(TextId::kRange);
    return base::FindLong(value) && values::InRange(base::ToLong(value), range);
  }

  // One value that no rule asks for.
  void AddAnother(Made& made, const PropertyDescriptor* property) const {
    const bool number = property == nullptr ? base::FindLong(made.wanted.front()).has_value() : IsNumber(*property);
    const WideString range = property == nullptr ? WideString() : property->Resolve(TextId::kRange);
    std::vector<WideString> candidates;
    if (number) {
      for (const WideString& wanted : made.wanted) candidates.push_back(base::ToText(base::ToLong(wanted) + 1LL));
      candidates.push_back(base::ToText(base::ToLong(range)));  // where the range begins
      for (int i = 0; i <= 9; ++i) candidates.push_back(base::ToText(i));
    } else {
      candidates = {u"x", u"xx", u""};
    }
    for (const WideString& candidate : candidates) {
      const bool asked = std::any_of(made.wanted.begin(), made.wanted.end(), [&](const WideString& wanted) {
        return base::EqualsIgnoringCase(wanted, candidate);
      });
      const bool fits = property == nullptr || CanHold(*property, candidate);
      if (asked || !fits) continue;
      AddValue(made.lever, candidate);
      return;
    }
  }

  const Trial& trial_;
  std::vector<Made> made_;
};

}  // namespace

std::vector<Lever> LeversOf(const Trial& trial, const std::vector<SeenRule>& rules, bool wireless) {
  LeverMaker maker(trial);
  for (const SeenRule& rule : rules) {
    for (const SeenComparison& comparison : rule.comparisons) maker.Add(comparison.operand, comparison.wanted);
  }
  using namespace rules::wireless;
  const WideStringView settings[] = {kNetworkType, kAuthentication, kEncryption, kKeyIndex, kMethod8021X, kKeySetting};
  for (const WideStringView oid : settings) {
    const auto* property = wireless ? trial.Model().FindDescriptor(oid) : nullptr;
    if (property == nullptr) continue;
    maker.Add({WideString(property->DisplayName()), WideString(oid), property->GetValue().AsText(),
               rules::OperandOrigin::kProperty},
              {});
  }
  return std::move(maker).Take();
}

}  // namespace authoring
