#pragma once

#include <QByteArray>

#include <string>

namespace zu::app {

/// Replaces the file as a whole by a picture's bytes. Throws Failure, with the old file untouched, when it
/// can't be written or there are no bytes.
void savePicture(const QByteArray& bytes, const std::string& file);

} // namespace zu::app
