#pragma once

#include <afxwin.h>

namespace zu {

/// Width of the place that a triangle takes at the beginning of a line.
inline constexpr int kExpanderWidth = 18;

/// The triangle of a line that collapses, in the middle of the rectangle: pointing down when it is expanded,
/// to the right when not.
void drawExpander(CDC& dc, const CRect& place, bool expanded, COLORREF color);

/// A colour between two of the desktop's; `share` hundredths are the second's.
[[nodiscard]] COLORREF mixed(COLORREF first, COLORREF second, unsigned share);

} // namespace zu
