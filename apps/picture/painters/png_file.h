#pragma once

#include <QByteArray>
#include <QImage>

namespace zu::picture {

/// Returns a picture as a PNG file, without transparency. Pictures of up to 256 colours have a palette. Large
/// even areas and repeated lines, of which plans consist, compress well without the filters that photographs
/// need, and in a fraction of the time. Empty when memory does not suffice.
[[nodiscard]] QByteArray pngOf(const QImage& picture);

} // namespace zu::picture
