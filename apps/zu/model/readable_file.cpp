#include "model/readable_file.h"

#include "failure.h"
#include "text.h"

#include <zuhost/file_ops.h>
#include <zuhost/paths.h>
#include <zuhost/platform/paths.h>
#include <zuhost/system_error.h>
#include <zuhost/texts.h>

#include <filesystem>

namespace zu::app {

void requireReadable(const std::string& file) {
    const std::string path = zuhost::systemPath(zuhost::viewOf(filePath(file)));
    std::error_code unknown;
    // Opening a pipe to test it would consume its data.
    if (std::filesystem::is_fifo(zuhost::platform::pathOf(path), unknown))
        return;
    if (std::filesystem::is_other(zuhost::platform::pathOf(path), unknown))
        throw Failure(file + ": is a device, not a file");
    zuhost::file_ops::File opened;
    if (const int error = opened.open(path, zuhost::file_ops::File::Mode::read))
        throw Failure(file + ": " + zuhost::errorText(error));
}

std::string withLastError(const std::string& file) {
    const DWORD error = GetLastError();
    return file + ": " + (error == ERROR_SUCCESS ? "can't be saved" : zuhost::lastErrorText(error));
}

} // namespace zu::app
