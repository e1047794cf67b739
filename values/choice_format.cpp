#include "values/choice_format.h"

#include "base/number.h"

#include <algorithm>

namespace values {
namespace {

// The index of the last entry that fits.
template <typename Predicate>
std::optional<std::size_t> LastIndex(const std::vector<ChoiceFormat::Entry>& entries, Predicate fits) {
  const auto found = std::find_if(entries.rbegin(), entries.rend(), fits);
  if (found == entries.rend()) return std::nullopt;
  return static_cast<std::size_t>(entries.rend() - found) - 1;
}

}  // namespace

ChoiceFormat::ChoiceFormat(WideStringView text, KeyMode mode) : mode_(mode) {
  for (std::size_t bar = text.find(u'|'); bar != WideStringView::npos; bar = text.find(u'|')) {
    Add(text.substr(0, bar));
    text.remove_prefix(bar + 1);
  }
  if (!text.empty()) Add(text);
}

void ChoiceFormat::Add(WideStringView entry) {
  const std::size_t sign = entry.find(u'#');
  if (sign == WideStringView::npos) {
    entries_.push_back({WideString(), 0, WideString(entry)});
    return;
  }
  const WideStringView key = entry.substr(0, sign);
  entries_.push_back({WideString(key), base::ToLong(key), WideString(entry.substr(sign + 1))});
}

const ChoiceFormat::Entry* ChoiceFormat::FindText(WideStringView text, KeyMode mode) const {
  if (mode != mode_) return nullptr;
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [text](const Entry& entry) { return entry.text == text; });
  return found == entries_.end() ? nullptr : &*found;
}

std::optional<std::int32_t> ChoiceFormat::GetValue(WideStringView text) const {
  const Entry* entry = FindText(text, KeyMode::kNumeric);
  if (entry == nullptr) return std::nullopt;
  return entry->number;
}

std::optional<std::size_t> ChoiceFormat::IndexOfValue(std::int32_t number) const {
  if (mode_ != KeyMode::kNumeric) return std::nullopt;
  return LastIndex(entries_, [number](const Entry& entry) { return entry.number == number; });
}

std::optional<WideString> ChoiceFormat::GetKey(WideStringView text) const {
  const Entry* entry = FindText(text, KeyMode::kText);
  if (entry == nullptr) return std::nullopt;
  return entry->key;
}

std::optional<WideString> ChoiceFormat::GetText(WideStringView key) const {
  if (mode_ != KeyMode::kText) return std::nullopt;
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [key](const Entry& entry) { return entry.key == key; });
  if (found == entries_.end()) return std::nullopt;
  return found->text;
}

std::optional<std::size_t> ChoiceFormat::IndexOfKey(WideStringView key) const {
  if (mode_ != KeyMode::kText) return std::nullopt;
  return LastIndex(entries_, [key](const Entry& entry) { return entry.key == key; });
}

std::optional<std::size_t> ChoiceFormat::IndexOf(const PropertyValue& value) const {
  if (mode_ == KeyMode::kText) return IndexOfKey(value.AsText());
  const std::optional<std::int32_t> number = value.IsInteger() ? value.AsInteger() : base::FindLong(value.AsText());
  return number ? IndexOfValue(*number) : std::nullopt;
}

}  // namespace values
