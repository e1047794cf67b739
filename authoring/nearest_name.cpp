#include "authoring/nearest_name.h"

#include <algorithm>
#include <numeric>

namespace authoring {
namespace {

// How many characters must be put in, left out or replaced.
std::size_t Distance(WideStringView a, WideStringView b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row[b.size()];
}

}  // namespace

std::vector<std::size_t> NearestNames(WideStringView name, std::span<const WideStringView> names) {
  constexpr std::size_t kLongest = 64;
  std::vector<std::size_t> nearest;
  const WideString wanted = base::ToUpper(base::Trim(name));
  if (wanted.empty() || wanted.size() > kLongest) return nearest;
  std::size_t least = std::max<std::size_t>(1, wanted.size() / 3);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::size_t longer = std::max(names[i].size(), wanted.size());
    if (longer > kLongest || longer - std::min(names[i].size(), wanted.size()) > least) continue;
    const std::size_t distance = Distance(wanted, base::ToUpper(names[i]));
    if (distance > least) continue;
    if (distance < least) nearest.clear();
    least = distance;
    nearest.push_back(i);
  }
  return nearest;
}

std::optional<WideString> NearestName(WideStringView name, std::span<const WideStringView> names) {
  const auto nearest = NearestNames(name, names);
  if (nearest.empty()) return std::nullopt;
  return WideString(names[nearest.front()]);
}

}  // namespace authoring
