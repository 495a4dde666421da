#include "lock_mark.h"

namespace zu {

void drawLock(CDC& dc, const CRect& place, COLORREF color) {
    const int x = (place.left + place.right) / 2;
    const int y = (place.top + place.bottom) / 2;
    dc.FillSolidRect(CRect(x - 4, y, x + 4, y + 5), color);     // body
    dc.FillSolidRect(CRect(x - 3, y - 4, x - 2, y), color);     // shackle
    dc.FillSolidRect(CRect(x + 2, y - 4, x + 3, y), color);     // shackle
    dc.FillSolidRect(CRect(x - 2, y - 5, x + 2, y - 4), color); // shackle
}

} // namespace zu
