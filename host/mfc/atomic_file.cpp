#include "zuhost/atomic_file.h"

#include "temporary_file.h"

#include <zuhost/platform/error_numbers.h>
#include <zuhost/platform/file_rules.h>
#include <zuhost/platform/paths.h>

#include <chrono>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <thread>

namespace zuhost {

namespace {

namespace fs = std::filesystem;
using file_ops::File;

constexpr std::size_t kBuffer = std::size_t{1} << 20U;
/// Limits the bytes of a device, a pipe or a growing file, which may have no end.
constexpr std::size_t kMostUnexpected = std::size_t{1} << 27U;
constexpr int kMostLinks = 40;
constexpr std::chrono::seconds kPatience{10};
constexpr std::chrono::milliseconds kPause{2};

std::string folderOf(const std::string& path) {
    const std::string folder = platform::textOf(platform::pathOf(path).parent_path());
    return folder.empty() ? "." : folder;
}

/// Returns an error for files that must not be replaced: renaming would replace read-only files, devices and
/// pipes. `exists` receives whether there is a file.
int writable(const std::string& path, bool& exists) {
    std::error_code error;
    const fs::file_status status = fs::status(platform::pathOf(path), error);
    exists = fs::exists(status);
    if (!exists)
        return status.type() == fs::file_type::not_found ? 0 : error.value();
    if (fs::is_other(status))
        return EPERM;
    File old;
    return old.open(path, File::Mode::update);
}

/// Locks the file that the name leads to; ENOENT when there is none. A saver that held the lock before has
/// replaced the file, so that the lock is on one that has lost its name: then the next one is locked.
int lockFile(const std::string& path, File& file) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    do {
        if (const int error = file.open(path, File::Mode::update))
            return error;
        const int error = file.tryLock();
        if (error != EWOULDBLOCK && (error != 0 || isAt(file, path)))
            return error;
        std::this_thread::sleep_for(kPause);
    } while (std::chrono::steady_clock::now() < end);
    return EBUSY;
}

} // namespace

std::variant<std::string, int> followLinks(const std::string& path) {
    if (path.find('\0') != std::string::npos)
        return EILSEQ;
    std::error_code error;
    fs::path named = platform::pathOf(path);
    for (int followed = 0; fs::is_symlink(fs::symlink_status(named, error)); ++followed) {
        if (followed == kMostLinks)
            return ELOOP;
        named = named.parent_path() / fs::read_symlink(named, error);
    }
    const fs::path real = fs::weakly_canonical(named, error);
    if (error)
        return error.value();
    return real.empty() ? std::variant<std::string, int>(ENOENT) : platform::textOf(real);
}

std::variant<std::string, int> readWholeFile(const std::string& path, FileIdentity* identity) try {
    File file;
    if (const int error = file.open(path, File::Mode::read))
        return error;
    if (const int error = identity != nullptr ? file.identify(*identity) : 0)
        return error;
    std::error_code sizeError;
    const auto expected = fs::file_size(platform::pathOf(path), sizeError);
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

AtomicFile::AtomicFile(const std::string& path, const std::string& model) {
    auto target = followLinks(path);
    if (const int* error = std::get_if<int>(&target)) {
        error_ = *error;
        return;
    }
    target_ = std::move(std::get<std::string>(target));
    bool exists = false;
    error_ = writable(target_, exists);
    if (error_ == 0)
        open(exists ? target_ : model);
}

AtomicFile::~AtomicFile() = default;

void AtomicFile::open(const std::string& model) {
    temporary_ = std::make_unique<TemporaryFile>();
    error_ = temporary_->create(folderOf(target_));
    if (error_ == 0 && !model.empty()) // before anything is in it
        error_ = temporary_->file().copyRights(model);
}

void AtomicFile::write(std::string_view bytes) {
    if (bytes.size() >= kBuffer) {
        flush();
        if (error_ == 0)
            error_ = temporary_->file().write(bytes);
        return;
    }
    buffer_ += bytes;
    if (buffer_.size() >= kBuffer)
        flush();
}

void AtomicFile::flush() {
    if (error_ == 0 && !buffer_.empty())
        error_ = temporary_->file().write(buffer_);
    buffer_.clear();
}

int AtomicFile::commit(const FileIdentity* expected) {
    flush();
    if (error_ == 0)
        error_ = temporary_->file().sync();
    if (error_ == 0)
        error_ = replace(expected);
    // The new file is in place; that a folder can't be synced is no reason to report a failed save.
    if (error_ == 0)
        file_ops::syncFolder(folderOf(target_));
    temporary_.reset();
    return error_;
}

int AtomicFile::replace(const FileIdentity* expected) {
    File old;
    const int locked = lockFile(target_, old);
    if (locked != 0 && locked != ENOENT)
        return locked;
    if (expected != nullptr) {
        FileIdentity now;
        if (const int error = locked == 0 ? old.identify(now) : ESTALE)
            return error;
        if (now != *expected)
            return ESTALE;
    }
    if (!platform::kReplacesOpenFiles)
        static_cast<void>(old.close());
    // Without its identity, the next save of the caller is refused at worst.
    static_cast<void>(temporary_->file().identify(identity_));
    if (const int error = temporary_->renameTo(target_))
        return error;
    // Some systems give a file that replaces another the time of creation of that one.
    FileIdentity renamed;
    if (file_ops::identify(target_, renamed) == 0 && renamed.device == identity_.device &&
        renamed.inode == identity_.inode)
        identity_ = renamed;
    return 0;
}

int replaceFile(const std::string& path, std::string_view bytes, const std::string& model) {
    AtomicFile file(path, model);
    file.write(bytes);
    return file.commit();
}

} // namespace zuhost
