// Replaces the process's `new` by one that counts. In a file of its own, so that no compiler sees
// through the replacement.
#if !defined(_WIN32)

#include "tests/support/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

std::atomic<long> allocations{0};
std::atomic<std::size_t> limit{std::numeric_limits<std::size_t>::max()};

void* AllocateOrNull(std::size_t size) noexcept
{
    ++allocations;
    return size > limit ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* Allocate(std::size_t size)
{
    if (void* memory = AllocateOrNull(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size)
{
    return Allocate(size);
}
void* operator new[](std::size_t size)
{
    return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return AllocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return AllocateOrNull(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

long AllocationCount()
{
    return allocations;
}

AllocationLimit::AllocationLimit(std::size_t bytes)
{
    limit = bytes;
}

AllocationLimit::~AllocationLimit()
{
    limit = std::numeric_limits<std::size_t>::max();
}

#endif
