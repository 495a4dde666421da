#pragma once

#include "zuhost/platform/code_pages.h"

#include <span>

namespace zuhost::platform {

struct CodePageTable {
    int number;
    std::span<const CodePageEntry> entries;
};

/// Written by make_code_pages.py when the host is built.
std::span<const CodePageTable> codePageTables();

} // namespace zuhost::platform
