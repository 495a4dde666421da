#include "model/standard_streams.h"

#include "failure.h"

#include <QTemporaryFile>

#include <iostream>
#include <iterator>

namespace zu::app {

std::string readStandardInput() {
    return {std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
}

InputFile::InputFile(const std::string& file) : path_(file) {
    if (file != kStandardStream)
        return;
    copy_ = std::make_unique<QTemporaryFile>();
    const std::string bytes = readStandardInput();
    const auto size = static_cast<qint64>(bytes.size());
    if (!copy_->open() || copy_->write(bytes.data(), size) != size || !copy_->flush())
        throw Failure("standard input: " + copy_->errorString().toStdString());
    path_ = copy_->fileName().toStdString();
}

InputFile::~InputFile() = default;

} // namespace zu::app
