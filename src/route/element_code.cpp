#include "element_code.h"

#include <algorithm>
#include <array>
#include <span>

namespace zu {

namespace {

struct PrefixCode {
    std::wstring_view prefix;
    int code;
};

// The first prefix that matches counts: longer ones stand before those that they begin with.
constexpr std::array kElementCodes{
    PrefixCode{L"KK", 0},     PrefixCode{L"RTM", 2},     PrefixCode{L"RT", 1},      PrefixCode{L"RBL", 3},
    PrefixCode{L"RBTH", 21},  PrefixCode{L"RBTD", 22},   PrefixCode{L"RBT", 4},     PrefixCode{L"RBC", 5},
    PrefixCode{L"RB45L", 6},  PrefixCode{L"RB90LU", 17}, PrefixCode{L"RB90LD", 18}, PrefixCode{L"RB90L", 7},
    PrefixCode{L"RBSLU", 8},  PrefixCode{L"RBSLD", 9},   PrefixCode{L"RBSTH", 25},  PrefixCode{L"RBSTN", 26},
    PrefixCode{L"RBSTK", 27}, PrefixCode{L"RBSTU", 10},  PrefixCode{L"RBSTD", 11},  PrefixCode{L"RBSTR", 23},
    PrefixCode{L"RBS", 12},   PrefixCode{L"RBRD", 13},   PrefixCode{L"RBHPRR", 19}, PrefixCode{L"RBHPHI", 20},
    PrefixCode{L"RBHP", 14},  PrefixCode{L"RBMS", 15},   PrefixCode{L"RBV", 16},    PrefixCode{L"RB45T", 24},
    PrefixCode{L"RBE", 99},   PrefixCode{L"RB-", 101},
};
constexpr int kUnknownElement = 100;

constexpr std::array kFullSearchCodes{
    PrefixCode{L"RBTH", 31},   PrefixCode{L"RBTD", 32},   PrefixCode{L"RT", 1},    PrefixCode{L"RB45L", 6},
    PrefixCode{L"RB90LU", 17}, PrefixCode{L"RB90LD", 18}, PrefixCode{L"RB90L", 7}, PrefixCode{L"RBSLU", 8},
    PrefixCode{L"RBSLD", 9},   PrefixCode{L"RBS-", 12},   PrefixCode{L"KK", 1000},
};
constexpr std::size_t kShortSearchCodes = 3;

constexpr wchar_t upper(wchar_t c) {
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

} // namespace

bool startsWithNoCase(std::wstring_view text, std::wstring_view prefix) {
    return text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(),
                      [](wchar_t a, wchar_t b) { return upper(a) == upper(b); });
}

int elementCode(std::wstring_view blockName) {
    const auto found = std::find_if(kElementCodes.begin(), kElementCodes.end(), [&](const PrefixCode& entry) {
        return startsWithNoCase(blockName, entry.prefix);
    });
    return found == kElementCodes.end() ? kUnknownElement : found->code;
}

int searchCode(std::wstring_view blockName, bool fullForm) {
    const auto codes =
        std::span(kFullSearchCodes).first(fullForm ? kFullSearchCodes.size() : kShortSearchCodes);
    const auto found = std::find_if(codes.begin(), codes.end(), [&](const PrefixCode& entry) {
        return blockName.starts_with(entry.prefix);
    });
    return found == codes.end() ? 0 : found->code;
}

} // namespace zu
