#pragma once

#include <QPainterPath>

#include <zucomn/dxf.h>

namespace zu::preview {

// Texts as the outlines of their letters, in place, y upwards. Empty where there is nothing to see.

[[nodiscard]] QPainterPath textShape(const CText& text);
[[nodiscard]] QPainterPath textShape(const CMtext& text);

} // namespace zu::preview
