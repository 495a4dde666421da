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

/// Copying a block that the system has in memory is faster than waking a thread: only for slower ones it
/// sleeps.
std::unique_lock<std::mutex> InputFile::turn() {
    constexpr int kTries = 200;
    std::unique_lock lock(mutex_, std::try_to_lock);
    for (int i = 0; !lock && i < kTries; ++i) {
        std::this_thread::yield();
        (void)lock.try_lock();
    }
    if (!lock)
        lock.lock();
    return lock;
}

std::size_t InputFile::readAt(std::uint64_t offset, char* target, std::size_t count) {
    const std::unique_lock lock = turn();
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
