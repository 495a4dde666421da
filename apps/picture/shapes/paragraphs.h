#pragma once

#include "shapes/canvas.h"
#include "shapes/paragraph_layout.h"

namespace zu::picture {

/// Returns the format of texts in a style.
[[nodiscard]] TextFormat formatOf(const TextStyle& style, double height);

/// Draws a laid-out text. `toPlane` maps its coordinates to the plane that `toWorld` maps.
void drawPlaced(Canvas& canvas, const Entity& entity, const PlacedText& text, const QTransform& toPlane,
                const QTransform& toWorld);

/// Returns a text that is stored in pieces (`partCode`, then `lastCode`), which can part characters.
[[nodiscard]] QString joinedText(const Canvas& canvas, const Records& records, int partCode, int lastCode);

} // namespace zu::picture
