#include "authoring/values_that_matter.h"

#include "authoring/checks/range_text.h"
#include "authoring/wireless_items.h"
#include "base/number.h"
#include "rules/rule_actions.h"
#include "values/attributes.h"
#include "values/property_descriptor.h"
#include "values/range.h"

#include <algorithm>

namespace authoring {
namespace {

using values::TypeCode;

bool Contains(const std::vector<WideString>& texts, const WideString& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

// What a person may choose, as it is then stored.
std::vector<WideString> KeysOf(const values::ChoiceFormat& choices, bool isFlag) {
  std::vector<WideString> keys;
  for (const auto& choice : choices.Entries()) {
    const bool isTrue = base::EqualsIgnoringCase(choice.text, values::kTrueText);
    if (isFlag && (isTrue || base::EqualsIgnoringCase(choice.text, values::kFalseText))) {
      keys.emplace_back(isTrue ? u"1" : u"0");
    }
    keys.push_back(choices.Mode() == values::KeyMode::kNumeric ? base::ToText(choice.number) : choice.key);
  }
  return keys;
}

class Enumeration {
 public:
  Enumeration(const Survey& survey, WideStringView oid, const values::PropertyDescriptor* property,
              const std::vector<WideString>& wanted)
      : survey_(survey), oid_(oid), property_(property), wanted_(wanted) {}

  MatteringValues Run() && {
    const auto subjects = survey_.WithOid(oid_);
    const bool isKnown = !subjects.empty() && !IsSetByWirelessRules(oid_) &&
                         std::all_of(subjects.begin(), subjects.end(), [](const Subject* s) { return IsKnown(*s); });
    if (isKnown) {
      for (const Subject* subject : subjects) AddKnown(*subject);
    } else {
      for (const WideString& value : wanted_) Add(value);
      AddOther();
      AddUnique(WideString());
    }
    return std::move(found_);
  }

 private:
  // Its values are a list or a span of numbers.
  static bool IsKnown(const Subject& subject) {
    return HasChoices(subject) || subject.Type() == TypeCode::kBool || IsSpan(subject);
  }
  static bool HasChoices(const Subject& subject) {
    return subject.Has(Attribute::kChoiceFmt) && subject.ChoiceText() != values::kUnresolved;
  }
  static bool IsSpan(const Subject& subject) {
    const WideStringView range = subject.Resolved(Attribute::kRange);
    return subject.Type() == TypeCode::kInteger && !range.empty() && range != values::kUnresolved;
  }

  void AddUnique(const WideString& text) {
    // These are too many already, and to look through hundreds of thousands for each of them takes hours.
    if (found_.values.size() <= kMostMatteringValues && !Contains(found_.values, text)) found_.values.push_back(text);
  }

  // As the property holds it.
  void Add(const WideString& value) {
    if (property_ == nullptr) return AddUnique(value);
    values::PropertyValue parsed;
    property_->ParseValue(value, parsed);
    // What the type holds nothing of counts as the text that the device gave.
    AddUnique(parsed.AsText().empty() ? WideString() : value);
  }

  void AddOther() {
    const auto type = property_ == nullptr ? std::nullopt : values::TypeCodeOf(property_->GetType());
    WideString other = u"x";
    WideStringView more = u"x";
    if (type == TypeCode::kInteger) {
      other = u"4";
      more = u"7";
    } else if (type == TypeCode::kIpAddress) {
      other = u"10.11.12.13";
      more = u"7";
    }
    // Of some comparisons the case does not count.
    const auto isAskedFor = [&](const WideString& wanted) { return base::EqualsIgnoringCase(wanted, other); };
    while (std::any_of(wanted_.begin(), wanted_.end(), isAskedFor)) other += more;
    found_.other = other;
    Add(other);
  }

  void AddKnown(const Subject& subject) {
    if (HasChoices(subject)) {
      AddChoices(subject);
    } else if (subject.Type() == TypeCode::kBool) {
      Add(u"1");
      Add(u"0");
    } else {
      AddSpan(subject.Resolved(Attribute::kRange));
    }
    AddWhatIsThere(subject);
  }

  void AddChoices(const Subject& subject) {
    const bool isFlag = subject.Type() == TypeCode::kBool;
    for (const WideString& key : KeysOf(subject.Choices(), isFlag)) Add(key);
    for (const RuleText& rule : subject.Rules()) {
      for (const WideString* action : {&rule.thenAction, &rule.elseAction}) {
        const auto narrowed = rules::ReadChoicesAction(*action);
        if (!narrowed) continue;
        const WideString list = survey_.Source().Symbols().TextOf(narrowed->choices);
        for (const WideString& key : KeysOf({list, subject.Choices().Mode()}, isFlag)) Add(key);
        if (!narrowed->fallback.empty()) Add(WideString(narrowed->fallback));
      }
    }
  }

  void AddSpan(WideStringView range) {
    for (const WideString& value : wanted_) {
      const auto number = base::FindLong(value);
      if (number && values::InRange(*number, range)) Add(value);
    }
    for (const RangePart& part : PartsOfRange(range)) {
      // One of so many is not asked for.
      const std::int64_t last = std::min<std::int64_t>(part.high, part.low + static_cast<std::int64_t>(wanted_.size()));
      for (std::int64_t n = part.low; n <= last && !found_.other; ++n) {
        const WideString text = base::ToText(n);
        if (Contains(wanted_, text)) continue;
        found_.other = text;
        Add(text);
      }
    }
  }

  // What is there already, and what is set by others, can be there whatever the choices.
  void AddWhatIsThere(const Subject& subject) {
    if (subject.Has(Attribute::kDefVal)) Add(WideString(subject.Get(Attribute::kDefVal)));
    for (const model::SetTriple& triple : survey_.Triples()) {
      if (triple.oid == oid_) Add(triple.value);
    }
    const bool livesInProgram = subject.Get(Attribute::kOid).starts_with(u'_');
    const auto held = HeldBy(subject);
    if (held) Add(*held);
    const bool isMissing = !held && survey_.Source().Terminal().hasDevice;
    if (livesInProgram || isMissing || Contains(wanted_, WideString())) AddUnique(WideString());
  }

  // What the device gives; of a field, its part of the command.
  std::optional<WideString> HeldBy(const Subject& subject) const {
    if (!subject.IsField()) {
      const WideString* text = Survey::TextOf(subject.OnDevice());
      return text == nullptr ? std::nullopt : std::optional(*text);
    }
    const std::size_t colon = oid_.find(u':');
    const auto commands = survey_.WithOid(oid_.substr(0, colon));
    const WideString* record = survey_.DeviceText(oid_.substr(0, colon));
    if (colon == WideStringView::npos || commands.empty() || record == nullptr) return std::nullopt;
    const values::FieldWidthList* layout = commands.back()->Layout();
    if (layout == nullptr) return std::nullopt;
    return layout->Field(*record, base::ToLong(oid_.substr(colon + 1)) - 1);
  }

  const Survey& survey_;
  const WideStringView oid_;
  const values::PropertyDescriptor* property_;
  const std::vector<WideString>& wanted_;
  MatteringValues found_;
};

}  // namespace

MatteringValues ValuesThatMatter(const Survey& survey, WideStringView oid, const values::PropertyDescriptor* property,
                                 const std::vector<WideString>& wanted) {
  return Enumeration(survey, oid, property, wanted).Run();
}

}  // namespace authoring
