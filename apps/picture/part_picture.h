#pragma once

#include <QImage>
#include <QSize>

#include <zucomn/dxf.h>

namespace zu::preview {

struct PictureOptions {
    QSize size{800, 600};
    bool dark = false;
};

/// A part drawing as a picture: the extents of its header, where those are good, else of what is drawn,
/// fitted into the picture. Null when the drawing holds more than can be drawn. Needs a QGuiApplication, for
/// the fonts.
[[nodiscard]] QImage pictureOf(const CAcadDxf& part, const PictureOptions& options);

} // namespace zu::preview
