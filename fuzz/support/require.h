#pragma once

#include <cstdio>
#include <cstdlib>

namespace zu::fuzz {

/// Aborts the run with a message when a property does not hold.
inline void require(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

} // namespace zu::fuzz
