#include "authoring/checks/check.h"

#include "authoring/nearest_name.h"
#include "base/number.h"
#include "base/utf8.h"

#include <algorithm>
#include <chrono>

namespace authoring {

std::string_view NameOf(Severity severity) {
  switch (severity) {
    case Severity::kNote: return "note";
    case Severity::kWarning: return "warning";
    case Severity::kError: return "error";
  }
  return {};
}

Findings::Findings(const Configuration& configuration, std::vector<Finding>& all)
    : configuration_(configuration), all_(all), counts_(Checks().size()) {}

void Findings::Begin(const Check& check) {
  check_ = &check;
  count_ = &counts_[static_cast<std::size_t>(&check - Checks().data())];
}

// Null when there are enough.
Finding* Findings::New(std::string sentence, std::string mend) {
  if (++*count_ > kMostOfAKind) return nullptr;
  Finding& finding = all_.emplace_back();
  finding.id = check_->id;
  finding.severity = check_->severity;
  finding.sentence = std::move(sentence);
  finding.mend = std::move(mend);
  return &finding;
}

Finding* Findings::New(const Subject& subject, std::string sentence, std::string mend) {
  Finding* finding = New(std::move(sentence), std::move(mend));
  if (finding == nullptr) return nullptr;
  finding->key = Entries::PathOf(subject.MenuEntry());
  finding->element = subject.Key().Element();
  return finding;
}

void Findings::Add(const Subject& subject, std::string sentence, std::string mend) {
  if (Finding* finding = New(subject, std::move(sentence), std::move(mend))) {
    finding->position = configuration_.PositionOf(subject.Key());
  }
}

void Findings::Add(const Subject& subject, WideStringView attribute, std::string sentence, std::string mend) {
  if (Finding* finding = New(subject, std::move(sentence), std::move(mend))) {
    finding->value = attribute;
    finding->position = configuration_.PositionOf(subject.Key(), attribute);
  }
}

void Findings::Add(const Subject& subject, WideStringView attribute, std::size_t offset, std::string sentence,
                   std::string mend) {
  if (Finding* finding = New(subject, std::move(sentence), std::move(mend))) {
    finding->value = attribute;
    finding->position = configuration_.PositionOf(subject.Key(), attribute, offset);
  }
}

void Findings::AddAt(const Subject& subject, std::uint32_t element, std::string sentence, std::string mend) {
  Finding* finding = New(subject, std::move(sentence), std::move(mend));
  if (finding == nullptr) return;
  const config::XmlIndex& index = *configuration_.Index();
  if (index.TagName(element) == u"GROUP") {
    finding->element = element;
  } else {
    finding->value = index.TagName(element);
  }
  finding->position = configuration_.PositionAt(index[element].startTagStart);
}

void Findings::AddAt(Position position, std::string sentence, std::string mend) {
  if (Finding* finding = New(std::move(sentence), std::move(mend))) finding->position = std::move(position);
}

const Check* FindCheck(std::string_view id) {
  const auto checks = Checks();
  const auto found = std::find_if(checks.begin(), checks.end(), [id](const Check& check) { return check.id == id; });
  return found == checks.end() ? nullptr : &*found;
}

bool IsDateOrTime(const Subject& subject, WideStringView digits) {
  const std::int32_t number = base::ToLong(digits);
  const WideStringView subType = subject.Get(Attribute::kSubType);
  if (base::EqualsIgnoringCase(subType, u"Time")) {
    return number >= 0 && number / 10000 < 24 && number / 100 % 100 < 60 && number % 100 < 60;
  }
  if (!base::EqualsIgnoringCase(subType, u"Date")) return true;
  if (number <= 0) return false;
  const std::chrono::year_month_day date{std::chrono::year(number / 10000),
                                         std::chrono::month(static_cast<unsigned>(number / 100 % 100)),
                                         std::chrono::day(static_cast<unsigned>(number % 100))};
  return date.ok();
}

std::string Quoted(WideStringView text) {
  constexpr std::size_t kMost = 60;
  std::string quoted = "\"" + base::ToUtf8(text.substr(0, kMost));
  return quoted + (text.size() > kMost ? "...\"" : "\"");
}

std::string MendByNearest(WideStringView name, std::span<const WideStringView> names, std::string otherwise) {
  const auto nearest = NearestName(name, names);
  return nearest ? "Write " + Quoted(*nearest) + "." : otherwise;
}

}  // namespace authoring
