#pragma once

#include <cerrno>

// Error numbers of other systems' C libraries, above those of this one.

inline constexpr int ESTALE = 10070;
inline constexpr int EDQUOT = 10069;
