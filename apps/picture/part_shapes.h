#pragma once

#include <QPainterPath>

#include <functional>
#include <zucomn/dxf.h>

namespace zu::preview {

enum class ShapeKind { stroke, fill, dot };

/// Something to draw, in place, y upwards.
struct Shape {
    ShapeKind kind = ShapeKind::stroke;
    QPainterPath path;
    int color = 7;       ///< A colour number, 1 to 255.
    int lineWeight = 25; ///< Hundredths of a millimetre.
    Qt::PenStyle style = Qt::SolidLine;
};

/// Calls `draw` with each shape that a part drawing shows in model space, with block references and
/// dimensions resolved; layers that are off or frozen are left out. The shapes are the same ones each time.
/// False, and the rest is left out, where they are more than 1,500,000 entities; as many points as twenty
/// count as one.
[[nodiscard]] bool forEachShape(const CAcadDxf& part, const std::function<void(const Shape&)>& draw);

} // namespace zu::preview
