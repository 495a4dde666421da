#pragma once

#include <QPainterPath>

#include <vector>
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

/// What a part drawing shows in model space, block references and dimensions resolved. Layers that are off or
/// frozen are left out. The number of shapes, their size as a whole and the depth of nesting are bounded,
/// whatever the drawing says.
[[nodiscard]] std::vector<Shape> shapesOf(const CAcadDxf& part);

} // namespace zu::preview
