#include "plan/picture_file.h"

#include "failure.h"

#include <zuhost/atomic_file.h>
#include <zuhost/system_error.h>

namespace zu::app {

void savePicture(const QByteArray& bytes, const std::string& file) {
    if (bytes.isEmpty())
        throw Failure(file + ": the picture is too large");
    if (const int error =
            zuhost::replaceFile(file, {bytes.constData(), static_cast<std::size_t>(bytes.size())}))
        throw Failure(file + ": " + zuhost::errorText(error));
}

} // namespace zu::app
