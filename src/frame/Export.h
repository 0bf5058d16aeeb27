#pragma once

/// Marks the two functions and four classes that the module exports. Everything else is hidden;
/// tests/abi/exports.txt is the committed list.
#if defined(_WIN32)
#if defined(ZORCOORDSYS_BUILD)
#define ZORCOORDSYS_API __declspec(dllexport)
#else
#define ZORCOORDSYS_API __declspec(dllimport)
#endif
#else
#define ZORCOORDSYS_API __attribute__((visibility("default")))
#endif
