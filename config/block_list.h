// A list that grows without moving what it holds: elements keep their addresses, and no room is needed twice.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace config {

template <typename T>
class BlockList {
 public:
  std::size_t Size() const { return size_; }
  T& operator[](std::size_t index) { return blocks_[index >> kBlockBits][index & kBlockMask]; }
  const T& operator[](std::size_t index) const { return blocks_[index >> kBlockBits][index & kBlockMask]; }
  T& Back() { return (*this)[size_ - 1]; }

  // A new element at the end; of a type without constructors it is not initialised.
  T& Add() {
    if ((size_ & kBlockMask) == 0) blocks_.push_back(std::make_unique_for_overwrite<T[]>(kBlockMask + 1));
    return (*this)[size_++];
  }

  void Clear() {
    blocks_.clear();
    size_ = 0;
  }

 private:
  static constexpr std::size_t kBlockBits = 9;
  static constexpr std::size_t kBlockMask = (std::size_t{1} << kBlockBits) - 1;

  std::vector<std::unique_ptr<T[]>> blocks_;
  std::size_t size_ = 0;
};

}  // namespace config
