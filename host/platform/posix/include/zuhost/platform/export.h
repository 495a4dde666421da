#pragma once

/// Marks what a module or library exports.
#define ZUHOST_EXPORTED __attribute__((visibility("default")))

/// Marks a declaration as part of the exported interface of the host. Everything else stays hidden.
#define ZUHOST_API ZUHOST_EXPORTED
