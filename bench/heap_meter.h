// How much memory the program's own allocations take; for the whole process, from its start.
#pragma once

#include <cstddef>

namespace bench {

// Bytes that are allocated now.
std::size_t HeapBytes();

// The most bytes that were allocated at once since the last ResetHeapPeak().
std::size_t HeapPeak();
void ResetHeapPeak();

// Gives memory that was freed back to the system, so that what follows finds the heap of a program that just started.
void ForgetFreedMemory();

}  // namespace bench
