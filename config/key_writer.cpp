#include "config/key_writer.h"

#include <algorithm>
#include <utility>

namespace config {

void KeyWriter::MakeValuesUnique() {
  const auto sameName = [](const NamedText& a, const NamedText& b) { return a.name == b.name; };
  if (values_.size() > ConfigKey::kManyValues) {
    // From the back, so that the last of equal names comes first and is the one that stays.
    std::reverse(values_.begin(), values_.end());
    std::stable_sort(values_.begin(), values_.end(), ConfigKey::NameLess);
    values_.erase(std::unique(values_.begin(), values_.end(), sameName), values_.end());
    // Few may be left, which is well: then order does not matter.
    return;
  }
  std::size_t count = 0;
  for (const NamedText& value : values_) {
    const auto end = values_.begin() + static_cast<std::ptrdiff_t>(count);
    const auto earlier = std::find_if(values_.begin(), end, [&](const NamedText& v) { return sameName(v, value); });
    *earlier = value;
    if (earlier == end) ++count;
  }
  values_.resize(count);
}

void KeyWriter::Finish(ConfigKey& key) {
  MakeValuesUnique();
  key.values_ = arena_.Copy(std::span<const NamedText>(values_));
  key.valueCount_ = static_cast<std::uint32_t>(values_.size());
  key.fromRegistry_ = fromRegistry_;
  key.lists_ = std::move(lists_);
  const WideStringView descendent = key.Value(u"Descendent");
  if (!descendent.empty() && !key.fromRegistry_) subkeys_.push_back(descendent);
  key.subkeys_ = arena_.Copy(std::span<const WideStringView>(subkeys_));
  key.subkeyCount_ = static_cast<std::uint32_t>(subkeys_.size());
  fromRegistry_ = false;
  values_.clear();
  subkeys_.clear();
}

}  // namespace config
