#include "bench/heap_meter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t heapBytes = 0;
std::size_t heapPeak = 0;

void* Allocate(std::size_t size) {
  void* const memory = std::malloc(std::max<std::size_t>(size, 1));
  if (memory == nullptr) throw std::bad_alloc();
  heapBytes += malloc_usable_size(memory);
  heapPeak = std::max(heapPeak, heapBytes);
  return memory;
}

void Release(void* memory) {
  heapBytes -= malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

// The benchmarks have one thread.
void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete[](void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t) noexcept { Release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Release(memory); }

namespace bench {

std::size_t HeapBytes() { return heapBytes; }
std::size_t HeapPeak() { return heapPeak; }
void ResetHeapPeak() { heapPeak = heapBytes; }
void ForgetFreedMemory() { malloc_trim(0); }

}  // namespace bench
