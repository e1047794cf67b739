#include "authoring/checks/subject_index.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

namespace authoring {
namespace {

std::uint64_t HashOf(WideStringView text) { return std::hash<WideStringView>()(text); }

}  // namespace

bool SubjectIndex::ComesBefore(const Place& a, const Place& b) {
  return a.hash != b.hash ? a.hash < b.hash : a.text < b.text;
}

std::size_t SubjectIndex::BucketOf(std::uint64_t hash) const { return hash >> shift_; }

void SubjectIndex::Add(WideStringView text, const Subject& subject) {
  places_.push_back({HashOf(text), text, &subject});
}

void SubjectIndex::GatherBuckets() {
  std::vector<std::size_t> next(starts_.begin(), starts_.end() - 1);
  std::vector<Place> gathered(places_.size());
  for (const Place& place : places_) gathered[next[BucketOf(place.hash)]++] = place;
  places_ = std::move(gathered);
}

void SubjectIndex::Sort() {
  const int bits = std::max(1, static_cast<int>(std::bit_width(places_.size())));
  shift_ = 64 - bits;
  starts_.assign((std::size_t{1} << bits) + 1, 0);
  for (const Place& place : places_) ++starts_[BucketOf(place.hash) + 1];
  for (std::size_t bucket = 1; bucket < starts_.size(); ++bucket) starts_[bucket] += starts_[bucket - 1];
  GatherBuckets();
  const auto isEarlier = [](const Place& a, const Place& b) {
    return ComesBefore(a, b) || (!ComesBefore(b, a) && std::less<>()(a.subject, b.subject));
  };
  // With so many buckets one rarely holds more than a text or two: the time is that of going through them once.
  for (std::size_t bucket = 0; bucket + 1 < starts_.size(); ++bucket) {
    const auto first = places_.begin() + static_cast<std::ptrdiff_t>(starts_[bucket]);
    const auto last = places_.begin() + static_cast<std::ptrdiff_t>(starts_[bucket + 1]);
    if (last - first > 1) std::sort(first, last, isEarlier);
  }
  subjects_.reserve(places_.size());
  for (const Place& place : places_) subjects_.push_back(place.subject);
  for (std::size_t first = 0, end = 0; first < places_.size(); first = end) {
    while (end < places_.size() && !ComesBefore(places_[first], places_[end])) ++end;
    if (end - first > 1) shared_.push_back(Group(subjects_).subspan(first, end - first));
  }
  std::sort(shared_.begin(), shared_.end(), [](Group a, Group b) { return std::less<>()(a.front(), b.front()); });
}

SubjectIndex::Group SubjectIndex::Find(WideStringView text) const {
  const Place wanted{HashOf(text), text, nullptr};
  const std::size_t bucket = BucketOf(wanted.hash);
  const std::span<const Place> places =
      std::span(places_).subspan(starts_[bucket], starts_[bucket + 1] - starts_[bucket]);
  const auto [first, last] = std::equal_range(places.begin(), places.end(), wanted, ComesBefore);
  return Group(subjects_).subspan(starts_[bucket] + static_cast<std::size_t>(first - places.begin()),
                                  static_cast<std::size_t>(last - first));
}

}  // namespace authoring
