#pragma once

/// Marks a declaration as part of the exported interface of libZuComn. Everything else stays hidden.
#if defined(_WIN32)
#if defined(ZUCOMN_BUILD)
#define ZUCOMN_API __declspec(dllexport)
#else
#define ZUCOMN_API __declspec(dllimport)
#endif
#else
#define ZUCOMN_API __attribute__((visibility("default")))
#endif
