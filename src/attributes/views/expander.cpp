#include "expander.h"

#include <array>

namespace zu {

void drawExpander(CDC& dc, const CRect& place, bool expanded, COLORREF color) {
    constexpr int kHalfSize = 4;
    const CPoint middle((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    const std::array<POINT, 3> down{POINT{middle.x - kHalfSize, middle.y - kHalfSize / 2},
                                    POINT{middle.x + kHalfSize, middle.y - kHalfSize / 2},
                                    POINT{middle.x, middle.y + kHalfSize / 2 + 1}};
    const std::array<POINT, 3> right{POINT{middle.x - kHalfSize / 2, middle.y - kHalfSize},
                                     POINT{middle.x + kHalfSize / 2 + 1, middle.y},
                                     POINT{middle.x - kHalfSize / 2, middle.y + kHalfSize}};
    dc.SetTextColor(color);
    dc.Polygon(expanded ? down.data() : right.data(), static_cast<int>(down.size()));
}

COLORREF readOnlyColor() {
    return mixed(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), 55);
}

COLORREF mixed(COLORREF first, COLORREF second, unsigned share) {
    const auto channel = [=](unsigned shift) {
        const unsigned from = first >> shift & 0xFFU;
        const unsigned to = second >> shift & 0xFFU;
        return static_cast<BYTE>((from * (100 - share) + to * share) / 100);
    };
    return RGB(channel(0), channel(8), channel(16));
}

} // namespace zu
