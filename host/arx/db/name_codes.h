#pragma once

#include <string_view>

namespace zuhost {

/// Where an entity names a record of a symbol table.
struct NameCode {
    std::string_view type; ///< Empty for all types.
    int code;
    std::string_view table;
};

inline constexpr NameCode kNameCodes[] = {
    {"", 8, "LAYER"},
    {"", 6, "LTYPE"},
    {"INSERT", 2, "BLOCK_RECORD"},
    {"TEXT", 7, "STYLE"},
    {"MTEXT", 7, "STYLE"},
    {"ATTRIB", 7, "STYLE"},
    {"ATTDEF", 7, "STYLE"},
    {"LEADER", 3, "DIMSTYLE"},
    {"TOLERANCE", 3, "DIMSTYLE"},
    {"DIMENSION", 3, "DIMSTYLE"},
    {"DIMENSION", 2, "BLOCK_RECORD"},
};

} // namespace zuhost
