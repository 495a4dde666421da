#pragma once

#include "shape.h"

#include <QColor>

namespace zu::picture {

/// The colours of a picture: dark ink on a light ground, or the other way round.
struct Theme {
    QColor ground;
    QColor ink;
    bool isDark = false;

    static Theme light();
    static Theme dark();

    /// Returns a drawing's colour as it can be seen on the ground: bright colours are darkened on a light
    /// one, dark colours lightened on a dark one.
    [[nodiscard]] QColor colourOf(const Colour& colour) const;
    [[nodiscard]] QColor visible(const QColor& colour) const;
    /// Returns a colour mixed with the ground; 0 is the colour, 1 the ground.
    [[nodiscard]] QColor faded(const QColor& colour, double share) const;
};

} // namespace zu::picture
