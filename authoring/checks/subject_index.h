// Subjects by a text of theirs that several may share.
#pragma once

#include "base/wide_string.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace authoring {

class Subject;

// It is filled, then sorted once, and only then asked: one piece of memory, which stays fast with 100,000 of them.
class SubjectIndex {
 public:
  // All subjects of one text, in the order in which they were added.
  using Group = std::span<const Subject* const>;

  // The text lives longer.
  void Add(WideStringView text, const Subject& subject);
  void Sort();
  // Empty when there is none.
  Group Find(WideStringView text) const;
  // Those of more than one, by their first.
  const std::vector<Group>& Shared() const { return shared_; }

 private:
  struct Place {
    std::uint64_t hash = 0;
    WideStringView text;
    const Subject* subject = nullptr;
  };
  static bool ComesBefore(const Place& a, const Place& b);
  std::size_t BucketOf(std::uint64_t hash) const;
  void GatherBuckets();

  std::vector<Place> places_;             // by their hashes
  std::vector<std::size_t> starts_;       // where among them the hashes of each beginning start, and the end
  int shift_ = 0;                         // leaves the beginning of a hash
  std::vector<const Subject*> subjects_;  // in the order of places_
  std::vector<Group> shared_;
};

}  // namespace authoring
