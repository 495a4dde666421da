#pragma once

#include <string>
#include <string_view>

/// The lines of an ASCII drawing's records, written as codes and values: "0 LINE|10 2.5|20 0".
inline std::string dxfRecords(std::string_view notation) {
    std::string lines;
    bool inCode = true;
    for (const char c : notation) {
        const bool ends = c == '|' || (inCode && c == ' ');
        lines += ends ? '\n' : c;
        inCode = c == '|' || (inCode && !ends);
    }
    return lines + '\n';
}
