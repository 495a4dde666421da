#include "element_code.h"

#include "frame/library_text.h"
#include "frame/resource_ids.h"

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
    unsigned label;         ///< Id of its name among the library's texts.
};

/// One row per element prefix. The first prefix that matches decides.
constexpr std::array kElementKinds{
    ElementKind{L"KK", 0, L"equipment", 3120},
    ElementKind{L"RTM", 2, L"main route line", 3121},
    ElementKind{L"RT", 1, L"route line", 3122},
    ElementKind{L"RBL", 3, L"elbow", 3123},
    ElementKind{L"RBTH", 21, L"", 0},
    ElementKind{L"RBTD", 22, L"", 0},
    ElementKind{L"RBT", 4, L"tee", 3124},
    ElementKind{L"RBC", 5, L"reducer", 3125},
    ElementKind{L"RB45L", 6, L"45° elbow", 3126},
    ElementKind{L"RB90LU", 17, L"90° elbow up", 3127},
    ElementKind{L"RB90LD", 18, L"90° elbow down", 3128},
    ElementKind{L"RB90L", 7, L"90° elbow", 3129},
    ElementKind{L"RBSLU", 8, L"", 0},
    ElementKind{L"RBSLD", 9, L"", 0},
    ElementKind{L"RBSTH", 25, L"", 0},
    ElementKind{L"RBSTN", 26, L"", 0},
    ElementKind{L"RBSTK", 27, L"", 0},
    ElementKind{L"RBSTU", 10, L"", 0},
    ElementKind{L"RBSTD", 11, L"", 0},
    ElementKind{L"RBSTR", 23, L"", 0},
    ElementKind{L"RBS", 12, L"S fitting", 3130},
    ElementKind{L"RBRD", 13, L"", 0},
    ElementKind{L"RBHPRR", 19, L"", 0},
    ElementKind{L"RBHPHI", 20, L"", 0},
    ElementKind{L"RBHP", 14, L"", 0},
    ElementKind{L"RBMS", 15, L"", 0},
    ElementKind{L"RBV", 16, L"valve", 3131},
    ElementKind{L"RB45T", 24, L"45° tee", 3132},
    ElementKind{L"RBE", 99, L"end", 3133},
    ElementKind{L"RB-", 101, L"fitting", 3134},
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

namespace {

const zu::ElementKind* findNamed(int code) {
    const auto* const found = std::find_if(zu::kElementKinds.begin(), zu::kElementKinds.end(),
                                           [code](const zu::ElementKind& kind) { return kind.code == code; });
    return found != zu::kElementKinds.end() && !found->name.empty() ? found : nullptr;
}

} // namespace

std::wstring zucomn::elementKindName(int code) {
    if (code == kNoElement)
        return L"-";
    const zu::ElementKind* const named = findNamed(code);
    return named != nullptr ? std::wstring(named->name) : L"fitting " + std::to_wstring(code);
}

std::wstring zucomn::elementKindLabel(int code) {
    if (code == kNoElement)
        return L"-";
    CString label;
    if (const zu::ElementKind* const named = findNamed(code))
        label = zu::libraryText(named->label);
    else
        label.Format(zu::libraryText(zu::text::kNumberedFitting), code);
    return std::wstring(label.view());
}
