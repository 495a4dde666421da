#include "element_code.h"

#include <zucomn/model/elements.h>

#include <algorithm>
#include <array>
#include <span>
#include <string>

namespace zu {

namespace {

struct ElementKind {
    std::wstring_view prefix;
    int code;
    std::wstring_view name; ///< Empty for fittings that are named by their code.
};

/// One row per element prefix. The first prefix that matches decides.
constexpr std::array kElementKinds{
    ElementKind{L"KK", 0, L"equipment"},
    ElementKind{L"RTM", 2, L"main route line"},
    ElementKind{L"RT", 1, L"route line"},
    ElementKind{L"RBL", 3, L"elbow"},
    ElementKind{L"RBTH", 21, L""},
    ElementKind{L"RBTD", 22, L""},
    ElementKind{L"RBT", 4, L"tee"},
    ElementKind{L"RBC", 5, L"reducer"},
    ElementKind{L"RB45L", 6, L"45° elbow"},
    ElementKind{L"RB90LU", 17, L"90° elbow up"},
    ElementKind{L"RB90LD", 18, L"90° elbow down"},
    ElementKind{L"RB90L", 7, L"90° elbow"},
    ElementKind{L"RBSLU", 8, L""},
    ElementKind{L"RBSLD", 9, L""},
    ElementKind{L"RBSTH", 25, L""},
    ElementKind{L"RBSTN", 26, L""},
    ElementKind{L"RBSTK", 27, L""},
    ElementKind{L"RBSTU", 10, L""},
    ElementKind{L"RBSTD", 11, L""},
    ElementKind{L"RBSTR", 23, L""},
    ElementKind{L"RBS", 12, L"S fitting"},
    ElementKind{L"RBRD", 13, L""},
    ElementKind{L"RBHPRR", 19, L""},
    ElementKind{L"RBHPHI", 20, L""},
    ElementKind{L"RBHP", 14, L""},
    ElementKind{L"RBMS", 15, L""},
    ElementKind{L"RBV", 16, L"valve"},
    ElementKind{L"RB45T", 24, L"45° tee"},
    ElementKind{L"RBE", 99, L"end"},
    ElementKind{L"RB-", 101, L"fitting"},
};

struct SearchCode {
    std::wstring_view prefix;
    int code;
};

constexpr std::array kFullSearchCodes{
    SearchCode{L"RBTH", 31},   SearchCode{L"RBTD", 32},   SearchCode{L"RT", 1},    SearchCode{L"RB45L", 6},
    SearchCode{L"RB90LU", 17}, SearchCode{L"RB90LD", 18}, SearchCode{L"RB90L", 7}, SearchCode{L"RBSLU", 8},
    SearchCode{L"RBSLD", 9},   SearchCode{L"RBS-", 12},   SearchCode{L"KK", 1000},
};
constexpr std::size_t kShortSearchCodes = 3;

/// True when no row is hidden by an earlier one.
template <typename Rows>
constexpr bool isReachable(const Rows& rows) {
    for (auto row = rows.begin(); row != rows.end(); ++row)
        if (std::any_of(rows.begin(), row,
                        [row](const auto& earlier) { return row->prefix.starts_with(earlier.prefix); }))
            return false;
    return true;
}
static_assert(isReachable(kElementKinds), "a prefix stands before the shorter ones that it begins with");
static_assert(isReachable(kFullSearchCodes), "a prefix stands before the shorter ones that it begins with");

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
    const auto found = std::find_if(kElementKinds.begin(), kElementKinds.end(), [&](const ElementKind& kind) {
        return startsWithNoCase(blockName, kind.prefix);
    });
    return found == kElementKinds.end() ? zucomn::kNoElement : found->code;
}

int searchCode(std::wstring_view blockName, bool fullForm) {
    const auto codes =
        std::span(kFullSearchCodes).first(fullForm ? kFullSearchCodes.size() : kShortSearchCodes);
    const auto found = std::find_if(codes.begin(), codes.end(), [&](const SearchCode& entry) {
        return blockName.starts_with(entry.prefix);
    });
    return found == codes.end() ? 0 : found->code;
}

} // namespace zu

std::wstring zucomn::elementKindName(int code) {
    if (code == kNoElement)
        return L"-";
    const auto found = std::find_if(zu::kElementKinds.begin(), zu::kElementKinds.end(),
                                    [code](const zu::ElementKind& kind) { return kind.code == code; });
    const bool isNamed = found != zu::kElementKinds.end() && !found->name.empty();
    return isNamed ? std::wstring(found->name) : L"fitting " + std::to_wstring(code);
}
