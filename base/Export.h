#pragma once

/// Marks what the base layer shows to other libraries; everything else is hidden.
#if defined(_WIN32)
#if defined(ZORBASE_BUILD)
#define ZORBASE_API __declspec(dllexport)
#else
#define ZORBASE_API __declspec(dllimport)
#endif
#else
#define ZORBASE_API __attribute__((visibility("default")))
#endif
