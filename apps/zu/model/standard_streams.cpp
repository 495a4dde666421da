#include "model/standard_streams.h"

#include "failure.h"

#include <zuhost/platform/files.h>
#include <zuhost/system_error.h>

#include <iostream>
#include <iterator>

namespace zu::app {

namespace {

int writeTo(zuhost::platform::FileHandle file, const std::string& bytes) {
    const int error = zuhost::platform::writeFile(file, bytes);
    const int atClose = zuhost::platform::closeFile(file);
    return error != 0 ? error : atClose;
}

} // namespace

std::string readStandardInput() {
    return {std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
}

InputFile::InputFile(const std::string& file) : path_(file), isCopy_(file == kStandardStream) {
    if (!isCopy_)
        return;
    const std::string bytes = readStandardInput();
    zuhost::platform::FileHandle copy = zuhost::platform::kNoFile;
    int error = zuhost::platform::openTemporaryFile(copy, path_);
    if (error == 0)
        error = writeTo(copy, bytes);
    if (error == 0)
        return;
    if (copy != zuhost::platform::kNoFile)
        zuhost::platform::removeFile(path_);
    throw Failure("standard input: " + zuhost::errorText(error));
}

InputFile::~InputFile() {
    if (isCopy_)
        zuhost::platform::removeFile(path_);
}

} // namespace zu::app
