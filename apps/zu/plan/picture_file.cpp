#include "plan/picture_file.h"

#include "failure.h"

#include <zuhost/atomic_file.h>

#include <QBuffer>

#include <system_error>

namespace zu::app {

QByteArray pngOf(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG") ? bytes : QByteArray();
}

void savePicture(const QByteArray& bytes, const std::string& file) {
    if (bytes.isEmpty())
        throw Failure(file + ": the picture is too large");
    if (const int error =
            zuhost::replaceFile(file, {bytes.constData(), static_cast<std::size_t>(bytes.size())}))
        throw Failure(file + ": can't be written: " + std::generic_category().message(error));
}

} // namespace zu::app
