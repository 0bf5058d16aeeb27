#pragma once

#include <cstddef>

/// How often memory has been allocated with `new` in this process, by the library too. Not on
/// Windows, where a library has an allocator of its own.
long AllocationCount();

/// From construction to destruction, `new` fails for more than `bytes` at once.
class AllocationLimit {
public:
    explicit AllocationLimit(std::size_t bytes);
    ~AllocationLimit();
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;
};
