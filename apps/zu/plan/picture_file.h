#pragma once

#include <QByteArray>
#include <QImage>

#include <string>

namespace zu::app {

/// The picture in PNG; empty when there is none or memory does not suffice.
[[nodiscard]] QByteArray pngOf(const QImage& picture);

/// Replaces the file as a whole by a picture's bytes. Throws Failure, with the old file untouched, when it
/// can't be written or there are no bytes.
void savePicture(const QByteArray& bytes, const std::string& file);

} // namespace zu::app
