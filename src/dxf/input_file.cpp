#include "input_file.h"

#include <thread>

namespace zu::dxf {

namespace {

std::uint64_t lengthOf(CFile& file) {
    try {
        return file.GetLength();
    } catch (CFileException* error) {
        error->Delete();
        return 0;
    }
}

} // namespace

std::shared_ptr<InputFile> InputFile::open(const wchar_t* path) {
    std::shared_ptr<InputFile> input(new InputFile);
    if (path == nullptr ||
        input->file_.Open(path, CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary) == FALSE)
        return nullptr;
    input->length_ = lengthOf(input->file_);
    return input;
}

std::size_t InputFile::readAt(std::uint64_t offset, char* target, std::size_t count) {
    while (!mutex_.try_lock()) // Copying a block is faster than waking a thread.
        std::this_thread::yield();
    const std::scoped_lock lock(std::adopt_lock, mutex_);
    try {
        if (offset != position_)
            position_ = file_.Seek(static_cast<std::int64_t>(offset), CFile::begin);
        const UINT got = file_.Read(target, static_cast<UINT>(count));
        position_ += got;
        return got;
    } catch (CFileException* error) {
        error->Delete();
        return 0;
    }
}

} // namespace zu::dxf
