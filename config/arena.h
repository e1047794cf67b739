// Memory for many small arrays that live and go together.
#pragma once

#include "base/wide_string.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

namespace config {

class Arena {
 public:
  // A copy that lives as long as the arena and does not move.
  template <typename T>
  const T* Copy(std::span<const T> items) {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);
    static_assert(alignof(T) <= alignof(std::max_align_t));
    if (items.empty()) return nullptr;
    T* const place = static_cast<T*>(Room(items.size_bytes(), alignof(T)));
    std::uninitialized_copy(items.begin(), items.end(), place);
    return place;
  }

  WideStringView Copy(WideStringView text) { return {Copy(std::span<const char16_t>(text)), text.size()}; }

 private:
  static constexpr std::size_t kBlockSize = 32 * 1024;

  void* Room(std::size_t size, std::size_t alignment) {
    void* place = next_;
    if (place == nullptr || std::align(alignment, size, place, left_) == nullptr) {
      if (size > kBlockSize / 4) return AddBlock(size);  // a block of its own; the current one is still in use
      place = AddBlock(kBlockSize);
      left_ = kBlockSize;
    }
    next_ = static_cast<std::byte*>(place) + size;
    left_ -= size;
    return place;
  }

  std::byte* AddBlock(std::size_t size) {
    blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
    return blocks_.back().get();
  }

  std::vector<std::unique_ptr<std::byte[]>> blocks_;
  std::byte* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace config
