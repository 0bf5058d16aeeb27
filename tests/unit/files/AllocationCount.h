#pragma once

/// How often memory has been allocated with `new` in this process, by the library too. Not on
/// Windows, where a library has an allocator of its own.
long AllocationCount();
