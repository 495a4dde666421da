#pragma once

#include <afxstr.h>

#include <cstdlib>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace zu::fuzz {

/// A file in memory, with a path.
class MemoryFile {
public:
    CString fill(std::string_view bytes) const {
        const auto size = static_cast<ssize_t>(bytes.size());
        if (ftruncate(file_, 0) != 0 || pwrite(file_, bytes.data(), bytes.size(), 0) != size)
            std::abort();
        CString path;
        path.Format(L"/proc/self/fd/%d", file_);
        return path;
    }

private:
    int file_ = memfd_create("part", 0);
};

} // namespace zu::fuzz
