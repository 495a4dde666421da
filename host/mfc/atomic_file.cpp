#include "zuhost/atomic_file.h"

#include <cerrno>
#include <filesystem>
#include <new>
#include <stdexcept>

namespace zuhost {

namespace {

namespace fs = std::filesystem;
using file_ops::File;

constexpr std::size_t kBuffer = std::size_t{1} << 20U;
/// Limits the bytes of a device, a pipe or a growing file, which may have no end.
constexpr std::size_t kMostUnexpected = std::size_t{1} << 27U;
constexpr int kNameAttempts = 1000;
constexpr int kMostLinks = 40;

/// Resolves symbolic links; the file they name need not exist.
std::string resolveLinks(const std::string& path) {
    std::error_code error;
    fs::path named = path;
    for (int followed = 0; followed < kMostLinks && fs::is_symlink(fs::symlink_status(named, error));
         ++followed)
        named = named.parent_path() / fs::read_symlink(named, error);
    const fs::path real = fs::weakly_canonical(named, error);
    return error || real.empty() ? path : real.string();
}

std::string folderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

bool exists(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error);
}

/// Returns 0 when the file may be replaced. Must be checked first: renaming would replace even a read-only
/// file, a device or a pipe.
int replaceError(const std::string& path) {
    std::error_code unknown;
    const fs::file_status status = fs::status(path, unknown);
    if (!fs::exists(status))
        return 0;
    if (fs::is_other(status))
        return EPERM;
    File old;
    return old.open(path, File::Mode::update);
}

} // namespace

std::variant<std::string, int> readWholeFile(const std::string& path) try {
    File file;
    if (const int error = file.open(path, File::Mode::read))
        return error;
    std::error_code sizeError;
    const auto expected = fs::file_size(path, sizeError);
    std::string bytes;
    std::size_t filled = 0;
    // One byte more than expected, so that the first read already finds the end.
    bytes.resize(sizeError ? kBuffer : static_cast<std::size_t>(expected) + 1);
    while (true) {
        std::size_t count = 0;
        if (const int error = file.read(bytes.data() + filled, bytes.size() - filled, count))
            return error;
        filled += count;
        if (filled < bytes.size())
            break;
        if (filled >= kMostUnexpected && (sizeError || filled > 2 * expected))
            return EFBIG;
        bytes.resize(bytes.size() * 2);
    }
    bytes.resize(filled);
    return bytes;
} catch (const std::bad_alloc&) {
    return ENOMEM;
} catch (const std::length_error&) {
    return ENOMEM;
}

AtomicFile::AtomicFile(const std::string& path, const std::string& model) : target_(resolveLinks(path)) {
    error_ = replaceError(target_);
    if (error_ == 0)
        open(exists(target_) ? target_ : model);
}

AtomicFile::~AtomicFile() {
    if (!done_)
        discard();
}

void AtomicFile::open(const std::string& rightsOf) {
    error_ = EEXIST;
    for (int attempt = 0; attempt < kNameAttempts && error_ == EEXIST; ++attempt) {
        temporary_ = target_ + ".tmp" + std::to_string(attempt);
        error_ = file_.open(temporary_, File::Mode::createNew);
    }
    if (error_ != 0)
        temporary_.clear();
    else if (!rightsOf.empty()) // while the file is still empty
        error_ = file_ops::copyMode(rightsOf, temporary_);
}

void AtomicFile::write(std::string_view bytes) {
    if (bytes.size() >= kBuffer) {
        flush();
        if (error_ == 0)
            error_ = file_.write(bytes);
        return;
    }
    buffer_ += bytes;
    if (buffer_.size() >= kBuffer)
        flush();
}

void AtomicFile::flush() {
    if (error_ == 0 && !buffer_.empty())
        error_ = file_.write(buffer_);
    buffer_.clear();
}

int AtomicFile::commit() {
    flush();
    if (error_ == 0)
        error_ = file_.sync();
    if (error_ == 0)
        error_ = file_.close();
    if (error_ == 0)
        error_ = file_ops::rename(temporary_, target_);
    if (error_ != 0) {
        discard();
        return error_;
    }
    done_ = true;
    // The new file is in place: a folder that cannot be synced does not make the save fail.
    file_ops::syncFolder(folderOf(target_));
    return 0;
}

void AtomicFile::discard() {
    done_ = true;
    if (temporary_.empty())
        return;
    file_.close();
    file_ops::remove(temporary_);
}

int replaceFile(const std::string& path, std::string_view bytes, const std::string& model) {
    AtomicFile file(path, model);
    file.write(bytes);
    return file.commit();
}

} // namespace zuhost
