#include "zuhost/platform/code_pages.h"

#include "code_page_tables.h"

namespace zuhost::platform {

/// The system's own conversions differ from those of other systems.
std::vector<CodePageEntry> readCodePage(int number) {
    for (const CodePageTable& table : codePageTables())
        if (table.number == number)
            return {table.entries.begin(), table.entries.end()};
    return {};
}

} // namespace zuhost::platform
