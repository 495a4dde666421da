#pragma once

#include <afxwin.h>

namespace zu {

/// Width of the area for the lock of an element on a locked layer, in pixels.
inline constexpr int kLockWidth = 18;

/// Draws a padlock, centred in the rectangle.
void drawLock(CDC& dc, const CRect& place, COLORREF color);

} // namespace zu
