#include "authoring/checks/rule_cases.h"

#include "authoring/checks/range_text.h"
#include "base/number.h"
#include "base/utf8.h"
#include "model/set_triple.h"
#include "values/attributes.h"
#include "values/range.h"

#include <algorithm>

namespace authoring {
namespace {

using values::TypeCode;

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

// The wireless rules give these properties values and choices of their own.
bool IsSetByWirelessRules(WideStringView oid) {
  using namespace rules::wireless;
  const WideStringView known[] = {kAuthentication, kEncryption, kKeyIndex, kMethod8021X, kKeySetting};
  return std::find(std::begin(known), std::end(known), oid) != std::end(known);
}

void AddUnique(std::vector<WideString>& texts, const WideString& text) {
  // These are too many already, and to look through hundreds of thousands for each of them takes hours.
  if (texts.size() > kMostCases) return;
  if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
}

}  // namespace

std::string RuleVariable::Said(const WideString& value) const {
  if (other && value == *other) return "any other value";
  return value.empty() ? "empty" : base::ToUtf8(value);
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

void RuleCases::Add(model::MenuItem& item, bool ownValue) {
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
    std::vector<WideString> wanted;
    if (operand.wanted) wanted.push_back(*operand.wanted);
    AddValues(variable, wanted);
  }
  present_.assign(variables_.size(), 0);
}

// As the property holds it, once.
void RuleCases::AddValue(RuleVariable& variable, const WideString& value) const {
  if (variable.property == nullptr || variable.field != 0) return AddUnique(variable.values, value);
  values::PropertyValue parsed;
  variable.property->ParseValue(value, parsed);
  // What the type holds nothing of counts as the text that the device gave.
  AddUnique(variable.values, parsed.AsText().empty() ? WideString() : value);
}

void RuleCases::AddValues(RuleVariable& variable, const std::vector<WideString>& wanted) const {
  const auto subjects = survey_.WithOid(variable.oid);
  if (!subjects.empty() && AddKnownValues(variable, *subjects.back(), wanted)) return;
  for (const WideString& value : wanted) AddValue(variable, value);
  AddUnique(variable.values, WideString());
  if (variable.other) return;
  WideString other = u"4711";  // begins with a digit, so that every type holds it
  if (variable.property != nullptr && values::TypeCodeOf(variable.property->GetType()) == TypeCode::kIpAddress) {
    other = u"10.11.12.13";
  }
  while (std::find(wanted.begin(), wanted.end(), other) != wanted.end()) other += u"7";
  variable.other = other;
  AddValue(variable, other);
}

// Of a property whose values are known; false for all others.
bool RuleCases::AddKnownValues(RuleVariable& variable, const Subject& subject,
                               const std::vector<WideString>& wanted) const {
  if (IsSetByWirelessRules(variable.oid)) return false;
  const auto type = subject.Type();
  const WideStringView range = subject.Resolved(Attribute::kRange);
  const bool hasChoices = subject.Has(Attribute::kChoiceFmt) && subject.ChoiceText() != values::kUnresolved;
  const bool isFlag = type == TypeCode::kBool;
  const bool isSpan = type == TypeCode::kInteger && !range.empty() && range != values::kUnresolved;
  if (!hasChoices && !isFlag && !isSpan) return false;

  if (hasChoices) {
    for (const auto& choice : subject.Choices().Entries()) AddValue(variable, choice.key);
    for (const RuleText& rule : subject.Rules()) {
      for (const WideString* action : {&rule.thenAction, &rule.elseAction}) {
        const auto narrowed = ChoicesOf(*action);
        if (!narrowed) continue;
        const WideString list = survey_.Source().Symbols().TextOf(narrowed->choices);
        const values::ChoiceFormat choices(list, values::KeyMode::kText);
        for (const auto& choice : choices.Entries()) AddValue(variable, choice.key);
        if (narrowed->fallback) AddValue(variable, *narrowed->fallback);
      }
    }
  } else if (isFlag) {
    AddValue(variable, u"0");
    AddValue(variable, u"1");
  } else {
    for (const WideString& value : wanted) {
      const auto number = base::FindLong(value);
      if (number && values::InRange(*number, range)) AddValue(variable, value);
    }
    for (const RangePart& part : PartsOfRange(range)) {
      for (std::int64_t n = part.low; n <= part.high && n < std::int64_t{part.low} + 3; ++n) {
        const WideString text = base::ToText(n);
        const bool isWanted = std::find(wanted.begin(), wanted.end(), text) != wanted.end();
        if (isWanted || variable.other) continue;
        variable.other = text;
        AddValue(variable, text);
      }
    }
  }
  // What is there already, and what is set by others, can be there whatever the choices.
  if (subject.Has(Attribute::kDefVal)) AddValue(variable, WideString(subject.Get(Attribute::kDefVal)));
  if (const WideString* held = Survey::TextOf(subject.OnDevice()); held != nullptr && !subject.IsField()) {
    AddValue(variable, *held);
  }
  for (const model::SetTriple& triple : survey_.Triples()) {
    if (triple.oid == variable.oid) AddValue(variable, triple.value);
  }
  const bool canBeEmpty = subject.Get(Attribute::kOid).starts_with(u'_') ||
                          std::find(wanted.begin(), wanted.end(), WideString()) != wanted.end();
  if (canBeEmpty) AddUnique(variable.values, WideString());
  return true;
}

std::size_t RuleCases::Count(std::size_t most) const {
  std::size_t count = tooMany_ ? most + 1 : 1;
  for (const RuleVariable& variable : variables_) {
    count *= std::max<std::size_t>(variable.values.size(), 1);
    if (count > most) return most + 1;
  }
  return count;
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
