// An input as a row of small decisions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace fuzz {

// Takes what the input holds, and zeros when it has come to its end.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}
  bool AreLeft() const { return at_ != end_; }
  std::uint8_t Next() { return at_ == end_ ? std::uint8_t{0} : *at_++; }

 private:
  const std::uint8_t* at_;
  const std::uint8_t* end_;
};

inline void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace fuzz
