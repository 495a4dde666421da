#pragma once

#include <cstdlib>

/// Sets a variable of this process for its C library and the system; null removes it.
inline void setVariable(const char* name, const char* value) {
#ifdef _WIN32
    _putenv_s(name, value != nullptr ? value : "");
#else
    if (value != nullptr)
        setenv(name, value, 1);
    else
        unsetenv(name);
#endif
}
