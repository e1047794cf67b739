#include "authoring/checks/subject.h"

#include "authoring/checks/survey.h"
#include "base/number.h"
#include "base/string_table.h"
#include "values/attributes.h"
#include "values/range.h"

#include <algorithm>

namespace authoring {
namespace {

std::size_t CountOf(WideStringView number) { return static_cast<std::size_t>(std::max(base::ToLong(number), 0)); }

}  // namespace

Subject::Subject(const Survey& survey, const Entry& entry) : survey_(&survey), entry_(&entry) {
  places_.fill(config::ConfigKey::kManyValues);
  std::uint8_t place = 0;
  for (const config::NamedText& value : entry.key->Values()) {
    if (!value.text.empty()) {
      const NamedAttribute named = AttributeOf(value.name);
      set_.Add(named.attribute);
      const bool isFollower = named.number != 0 || named.attribute == Attribute::kUnknown;
      if (!isFollower) places_[static_cast<std::size_t>(named.attribute)] = place;
    }
    if (place < config::ConfigKey::kManyValues) ++place;
  }
  if (!Has(Attribute::kType)) return;
  isInteger_ = Get(Attribute::kType) == LoadText(TextId::kInteger);
  type_ = values::TypeCodeOf(Get(Attribute::kType));
}

Subject::Parsed& Subject::Cache() const {
  if (!parsed_) parsed_ = std::make_unique<Parsed>();
  return *parsed_;
}

WideStringView Subject::Resolved(Attribute attribute) const {
  const WideStringView text = Get(attribute);
  if (!IsIndirect(text)) return text;
  const auto [place, isNew] = Cache().resolved.try_emplace(attribute);
  if (isNew) place->second = values::ResolveText(text);
  return place->second;
}

bool Subject::IsEditable() const {
  if (!IsProperty() || IsMenu() || IsCommand()) return false;
  const WideStringView named = Get(Attribute::kPropEditor);
  if (named.empty() && (Has(Attribute::kSecurity) || Has(Attribute::kCmdString))) return false;
  const auto code = values::TypeCodeOf(named.empty() ? Get(Attribute::kType) : named);
  if (Oid() == LoadText(TextId::kGetIpAddress)) return false;
  return code && *code != values::TypeCode::kNone && *code != values::TypeCode::kReaderCmd;
}

WideStringView Subject::ChoiceText() const {
  return survey_->Source().Symbols().ViewOf(Resolved(Attribute::kChoiceFmt));
}

const values::ChoiceFormat& Subject::Choices() const {
  auto& choices = Cache().choices;
  if (!choices) {
    choices.emplace(ChoiceText(), IsInteger() ? values::KeyMode::kNumeric : values::KeyMode::kText);
  }
  return *choices;
}

bool Subject::HasChoiceList() const {
  if (!Has(Attribute::kChoiceFmt) || ChoiceText() == values::kUnresolved) return false;
  return ChoiceText().find(u'#') != WideString::npos;
}

bool Subject::IsChoice(WideStringView value) const {
  values::PropertyValue parsed;
  values::ParseValueAs(Get(Attribute::kType), value, parsed);
  return Choices().IndexOf(parsed).has_value();
}

const values::FieldWidthList* Subject::Layout() const {
  if (!Has(Attribute::kCmdString)) return nullptr;
  auto& layout = Cache().layout;
  if (!layout) layout.emplace(WideString(Resolved(Attribute::kCmdString)));
  return &*layout;
}

std::size_t Subject::TypedLimit() const {
  WideString mask(Get(Attribute::kTextFmt));
  const WideStringView range = Resolved(Attribute::kRange);
  if (mask.empty() && range != values::kUnresolved) mask = values::MaskFromRange(range);
  if (mask.empty() && IsInteger()) mask = LoadText(TextId::kIntegerMask);
  if (Type() == values::TypeCode::kPassword) mask.clear();
  const std::size_t most = CountOf(Get(Attribute::kMaxChars));
  if (mask.empty() || most == 0) return std::max(mask.size(), most);
  return std::min(mask.size(), most);
}

const std::vector<RuleText>& Subject::Rules() const {
  static const std::vector<RuleText> kNone;
  if (!Has(Attribute::kDependency)) return kNone;
  auto& rules = Cache().rules;
  if (!rules) {
    rules.emplace();
    int number = 0;
    for (const WideStringView text : RulesOf(Key())) rules->push_back(ReadRule(number++, text));
  }
  return *rules;
}

std::vector<WideStringView> Subject::ExitCommands() const {
  return Has(Attribute::kOnExit) ? NumberedTexts(Key(), Attribute::kOnExit) : std::vector<WideStringView>();
}

const DeviceEntry* Subject::OnDevice() const {
  auto& entry = Cache().onDevice;
  if (!entry) entry = survey_->OnDevice(*this);
  return *entry;
}

}  // namespace authoring
