#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QString>
#include <QTransform>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zu::picture {

/// A colour as drawings define it.
struct Colour {
    static constexpr int kForeground = 7; ///< Black on a light background, white on a dark one.

    int number = kForeground;         ///< 1 to 255.
    std::optional<std::uint32_t> rgb; ///< 0xRRGGBB; replaces the number.

    bool operator==(const Colour&) const = default;
};

/// A line of letters in one font. Text space: the baseline starts at the origin, capitals are 1 high, x runs
/// along the text, y upwards.
struct TextRun {
    QString text;   ///< Without format codes.
    QString family; ///< Of an installed font; empty for the fallback with every character.
    bool bold = false;
    bool italic = false;
    bool onGrid = false; ///< Half-width letters take half the advance of full-width ones.
    double width = 0.0;  ///< Advance in text space.
    QTransform place;    ///< From text space to world: size, width factor, slant, rotation, mirroring.
};

/// Something to draw, in world coordinates of the drawing, y upwards. All coordinates are finite.
struct Shape {
    enum class Kind {
        stroke, ///< The path as lines.
        fill,   ///< The area of the path, by its fill rule.
        text,   ///< `run`; the path is empty, see outlineOf in text_outline.h.
        dot     ///< The first point of the path, in a size that does not depend on the scale.
    };

    Kind kind = Kind::stroke;
    QPainterPath path;
    Colour colour;
    int lineWeight = 25;        ///< Hundredths of a millimetre on paper.
    std::vector<double> dashes; ///< World units: positive dash, negative gap, 0 dot; empty for continuous.
    TextRun run;
    QRectF clip; ///< World rectangle outside of which nothing shows (viewports); null for none.
    /// The handle of the entity of the space that is drawn to which the shape belongs; 0 when it has none.
    std::uint64_t source = 0;
};

/// Receives shapes in drawing order. A shape is valid during the call only. False ends the production.
using ShapeSink = std::function<bool(const Shape&)>;

} // namespace zu::picture
