#include "base/string_table.h"

#include <algorithm>
#include <iterator>

namespace base {
namespace {

constexpr std::size_t kLongestText = 200;

constexpr TextEntry kTexts[] = {
#define TEXT_ENTRY(id, name, text) {TextId::k##name, u##text},
#include "base/string_table.inc"
#undef TEXT_ENTRY
};

constexpr bool ById(const TextEntry& a, const TextEntry& b) { return a.id < b.id; }
static_assert(std::is_sorted(std::begin(kTexts), std::end(kTexts), ById));

}  // namespace

std::span<const TextEntry> AllTexts() { return kTexts; }

WideStringView LoadText(TextId id) {
  const auto* entry = std::lower_bound(std::begin(kTexts), std::end(kTexts), TextEntry{id, {}}, ById);
  if (entry == std::end(kTexts) || entry->id != id) return {};
  return entry->text.substr(0, kLongestText);
}

}  // namespace base
