#pragma once

/// Marks what a module or library exports.
#define ZUHOST_EXPORTED __declspec(dllexport)

/// Marks a declaration as part of the exported interface of the host. Everything else stays hidden.
#if defined(ZUHOST_BUILD)
#define ZUHOST_API ZUHOST_EXPORTED
#else
#define ZUHOST_API __declspec(dllimport)
#endif
