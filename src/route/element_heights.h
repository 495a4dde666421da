#pragma once

#include <afxcoll.h>

#include <optional>
#include <string_view>

namespace zu {

inline constexpr const wchar_t* kMountingHeightId = L"S401";

struct HeightRange {
    double low = 0.0;
    double high = 0.0;
};

/// The heights of an element by the rules of RootComn_GetOBlockHeight.
struct ElementHeights {
    int kind = 0;
    std::optional<HeightRange> range; ///< Empty for the kinds that store no heights.
};

/// Works out the heights from the name of the element's block and the strings of its attribute record. An
/// attribute that is missing or no number counts as 0.
[[nodiscard]] ElementHeights elementHeights(std::wstring_view block, const CStringArray& record,
                                            const wchar_t* heightId = kMountingHeightId);

} // namespace zu
