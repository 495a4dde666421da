#pragma once

#include <afxwin.h>

namespace zu {

/// Width of the area for the triangle at the start of a line, in pixels.
inline constexpr int kExpanderWidth = 18;

/// Draws the triangle of a collapsible line, centred in the rectangle: pointing down when the line is
/// expanded, right when it is collapsed.
void drawExpander(CDC& dc, const CRect& place, bool expanded, COLORREF color);

/// Mixes two colours; `share` is the percentage of the second.
[[nodiscard]] COLORREF mixed(COLORREF first, COLORREF second, unsigned share);

/// Returns the colour of texts that cannot be edited; the desktop's own grey is too faint to read by.
[[nodiscard]] COLORREF readOnlyColor();

} // namespace zu
