#include "authoring/rule_cases.h"

#include "base/number.h"
#include "base/utf8.h"

#include <algorithm>

namespace authoring {
namespace {

// What an item's rules read and compare it with.
class Reading final : public rules::RuleListener {
 public:
  struct Operand {
    WideString name;
    WideString oid;
    rules::OperandOrigin origin = rules::OperandOrigin::kNowhere;
    const values::PropertyDescriptor* property = nullptr;
    std::optional<WideString> wanted;
  };
  std::vector<Operand> operands;

  void OnOperand(const rules::OperandReading& reading) override {
    operands.push_back({WideString(reading.name), WideString(reading.oid), reading.origin, reading.property, {}});
  }
  void OnComparison(const rules::Comparison& comparison) override {
    if (!operands.empty()) operands.back().wanted = WideString(comparison.wanted);
  }
};

// With more there are too many cases in any case, and to look through hundreds of thousands for each of them takes
// hours.
void AddUnique(std::vector<WideString>& texts, const WideString& text) {
  if (texts.size() > kMostCases) return;
  if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
}

}  // namespace

std::string RuleVariable::Said(const WideString& value) const {
  if (other && value == *other) return "any other value";
  return value.empty() ? "empty" : base::ToUtf8(value);
}

std::string RuleVariable::AllSaid() const {
  constexpr std::size_t kMost = 8;
  std::string text;
  for (std::size_t i = 0; i < values.size() && i < kMost; ++i) {
    const bool isLast = i + 1 == values.size();
    ::values::PropertyValue held = ::values::PropertyValue::OfText(values[i]);
    if (property != nullptr && field == 0) {
      held.Clear();
      property->ParseValue(values[i], held);
    }
    const bool isOther = other == values[i];
    text += (i == 0 ? "" : isLast ? " or " : ", ") + (isOther ? "any other value" : Said(held.AsText()));
  }
  return values.size() > kMost ? text + ", ..." : text;
}

const RuleVariable* RuleCases::Find(WideStringView oid) const {
  const auto found = std::find_if(variables_.begin(), variables_.end(),
                                  [oid](const RuleVariable& variable) { return variable.oid == oid; });
  return found == variables_.end() ? nullptr : &*found;
}

RuleVariable& RuleCases::Variable(WideStringView name, WideStringView oid, values::PropertyDescriptor* property,
                                  bool isField) {
  const auto found = std::find_if(variables_.begin(), variables_.end(),
                                  [oid](const RuleVariable& variable) { return variable.oid == oid; });
  if (found != variables_.end()) return *found;
  RuleVariable& variable = variables_.emplace_back();
  variable.oid = oid;
  const bool hasName = property != nullptr && !isField && !property->DisplayName().empty();
  variable.name = base::ToUtf8(hasName ? base::Trim(property->DisplayName()) : name);
  variable.property = property;
  if (isField) {
    variable.field = base::ToLong(oid.substr(oid.find(u':') + 1));
    variable.record = property->GetValue().AsText();
  }
  return variable;
}

RuleCases::RuleCases(const Survey& survey, FollowedTrial& trial, const std::vector<model::MenuItem*>& items,
                     bool ownValues)
    : survey_(survey), trial_(trial) {
  for (model::MenuItem* item : items) Read(*item, ownValues);
  for (RuleVariable& variable : variables_) {
    const auto* readBy = variable.field == 0 ? variable.property : nullptr;
    MatteringValues matter = ValuesThatMatter(survey_, variable.oid, readBy, variable.wanted);
    variable.values = std::move(matter.values);
    variable.other = std::move(matter.other);
  }
  present_.assign(variables_.size(), 0);
}

void RuleCases::Read(model::MenuItem& item, bool ownValue) {
  if (tooMany_) return;
  Reading reading;
  trial_.RunRules(item, reading);
  if (ownValue && item.Descriptor() != nullptr) {
    const WideString oid = trial_.trial.Model().OidByName(item.DisplayName());
    reading.operands.push_back({WideString(item.DisplayName()), oid, rules::OperandOrigin::kProperty,
                                trial_.trial.Model().FindDescriptor(oid), std::nullopt});
  }
  for (const Reading::Operand& operand : reading.operands) {
    if (operand.origin == rules::OperandOrigin::kNowhere || operand.oid.empty()) continue;
    if (variables_.size() == kMostVariables) {
      tooMany_ = true;
      break;
    }
    values::PropertyDescriptor* property = nullptr;
    const bool isField = operand.origin == rules::OperandOrigin::kField;
    if (operand.property != nullptr) {
      const WideStringView oid = operand.oid;
      property = trial_.trial.Model().FindDescriptor(isField ? oid.substr(0, oid.find(u':')) : oid);
    }
    RuleVariable& variable = Variable(operand.name, operand.oid, property, isField);
    if (operand.wanted) AddUnique(variable.wanted, *operand.wanted);
    tooMany_ = tooMany_ || variable.wanted.size() > kMostCases;
  }
}

std::size_t RuleCases::Count(std::size_t most) const {
  std::size_t count = tooMany_ ? most + 1 : 1;
  for (const RuleVariable& variable : variables_) {
    count *= std::max<std::size_t>(variable.values.size(), 1);
    if (count > most) return most + 1;
  }
  return count;
}

std::string RuleCases::TooManySaid(std::size_t most) const {
  return (tooMany_ ? "more than " : "") + std::to_string(variables_.size()) + " values with more than " +
         std::to_string(most) + " cases";
}

void RuleCases::Put(const RuleVariable& variable, const WideString& value) {
  if (variable.property == nullptr) {
    trial_.trial.Device().Put(variable.oid, value);
    return;
  }
  WideString text = value;
  if (variable.field != 0) {
    const values::FieldWidthList* layout = variable.property->CommandLayout();
    const auto start = static_cast<std::size_t>(std::max(0, layout->Start(variable.field - 1)));
    const auto width = static_cast<std::size_t>(std::max(0, layout->Width(variable.field - 1)));
    WideString field = value;
    field.resize(width, u' ');
    text = variable.record;
    if (text.size() < start + width) text.resize(start + width, u' ');
    text.replace(start, width, field);
  }
  values::PropertyValue parsed;
  variable.property->ParseValue(text, parsed);
  variable.property->SetTaken(std::move(parsed));
  // A rule may read it anew.
  const auto subjects = survey_.WithOid(variable.property->GetOID());
  if (!subjects.empty()) trial_.trial.Device().Put(survey_.DeviceOid(*subjects.back()), text);
}

void RuleCases::ForEach(const std::function<bool()>& visit) {
  present_.assign(variables_.size(), 0);
  for (;;) {
    for (std::size_t i = 0; i < variables_.size(); ++i) {
      if (!variables_[i].values.empty()) Put(variables_[i], variables_[i].values[present_[i]]);
    }
    if (!visit()) return;
    std::size_t next = 0;
    while (next < variables_.size() && present_[next] + 1 >= variables_[next].values.size()) present_[next++] = 0;
    if (next == variables_.size()) return;
    ++present_[next];
  }
}

std::string RuleCases::Said() const {
  std::string said;
  for (std::size_t i = 0; i < variables_.size(); ++i) {
    if (variables_[i].values.empty()) continue;
    said +=
        (said.empty() ? "" : ", ") + variables_[i].name + " = " + variables_[i].Said(variables_[i].values[present_[i]]);
  }
  return said;
}

}  // namespace authoring
