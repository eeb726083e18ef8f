#include "AllocationCounter.h"

#include <atomic>
#include <cstddef>
#include <malloc.h>
#include <stdlib.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VELMARIN_SANITIZER_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VELMARIN_SANITIZER_ALLOCATOR 1
#endif
#endif

namespace
{
thread_local bool counting = false;
std::atomic<std::uint64_t> heapCalls{0};

inline void note() noexcept
{
    if (counting)
        heapCalls.fetch_add(1, std::memory_order_relaxed);
}
} // namespace

namespace AllocationCounter
{
ScopedCountingThread::ScopedCountingThread() noexcept
{
    counting = true;
}
ScopedCountingThread::~ScopedCountingThread() noexcept
{
    counting = false;
}
std::uint64_t count() noexcept
{
    return heapCalls.load(std::memory_order_relaxed);
}
} // namespace AllocationCounter

#if VELMARIN_SANITIZER_ALLOCATOR
// The sanitizers own malloc; they call these hooks for every allocation and release. (The
// declaration is the sanitizer runtimes' own; GCC does not ship the header that carries it.)
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*onAllocate)(const volatile void*, std::size_t),
                                                         void (*onRelease)(const volatile void*));

namespace
{
void onAllocate(const volatile void*, std::size_t)
{
    note();
}
void onRelease(const volatile void*)
{
    note();
}

[[maybe_unused]] const int hooksInstalled = __sanitizer_install_malloc_and_free_hooks(onAllocate, onRelease);
} // namespace
#else
// glibc's allocator stays underneath: these forward to its entry points, so memory from any of
// them may be released through any other, and operator new (which calls malloc) is seen as well.
extern "C"
{
    // glibc's own names for its allocator, exported for exactly this use.
    void* __libc_malloc(std::size_t);
    void* __libc_calloc(std::size_t, std::size_t);
    void* __libc_realloc(void*, std::size_t);
    void* __libc_memalign(std::size_t, std::size_t);
    void __libc_free(void*);

#define VELMARIN_EXPORT __attribute__((visibility("default")))

    VELMARIN_EXPORT void* malloc(std::size_t size) noexcept
    {
        note();
        return __libc_malloc(size);
    }

    VELMARIN_EXPORT void* calloc(std::size_t count, std::size_t size) noexcept
    {
        note();
        return __libc_calloc(count, size);
    }

    VELMARIN_EXPORT void* realloc(void* pointer, std::size_t size) noexcept
    {
        note();
        return __libc_realloc(pointer, size);
    }

    VELMARIN_EXPORT void free(void* pointer) noexcept
    {
        if (pointer != nullptr)
            note();
        __libc_free(pointer);
    }

    VELMARIN_EXPORT void* memalign(std::size_t alignment, std::size_t size) noexcept
    {
        note();
        return __libc_memalign(alignment, size);
    }

    VELMARIN_EXPORT void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
    {
        note();
        return __libc_memalign(alignment, size);
    }

    VELMARIN_EXPORT int posix_memalign(void** result, std::size_t alignment, std::size_t size) noexcept
    {
        if (alignment < sizeof(void*) || (alignment & (alignment - 1)) != 0)
            return 22; // EINVAL
        note();
        *result = __libc_memalign(alignment, size);
        return *result != nullptr || size == 0 ? 0 : 12; // ENOMEM
    }
}
#endif
