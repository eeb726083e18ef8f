#pragma once

// Counts the heap calls (allocation, reallocation, release) that a marked thread makes. The whole
// process's allocator is hooked, so this file belongs in its own test executable. Counting happens
// at the malloc level, below operator new, so it also sees JUCE's containers (HeapBlock uses
// malloc and realloc directly).

#include <cstdint>

namespace AllocationCounter
{
/** While alive, the heap calls of the calling thread are counted. Not nestable. */
class ScopedCountingThread
{
public:
    ScopedCountingThread() noexcept;
    ~ScopedCountingThread() noexcept;
    ScopedCountingThread(const ScopedCountingThread&) = delete;
    ScopedCountingThread& operator=(const ScopedCountingThread&) = delete;
};

/** Heap calls made on counting threads since the process started. Any thread. */
std::uint64_t count() noexcept;
} // namespace AllocationCounter
