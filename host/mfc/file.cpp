#include "afx.h"

#include "zuhost/atomic_file.h"
#include "zuhost/paths.h"
#include "zuhost/system_error.h"

#include <zuhost/platform/paths.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

using zuhost::AtomicFile;
using zuhost::fileExceptionCauseOf;
using zuhost::file_ops::File;

struct CFile::Handle {
    File file;                            ///< Open unless the file is being created.
    std::unique_ptr<AtomicFile> creation; ///< Null unless the file is being created.
    ULONGLONG written = 0;
};

namespace {

bool creates(UINT flags) {
    return (flags & CFile::modeCreate) != 0 && (flags & CFile::modeNoTruncate) == 0;
}

bool writes(UINT flags) {
    return (flags & (CFile::modeWrite | CFile::modeReadWrite)) != 0;
}

std::string systemPathOf(const wchar_t* path) {
    return zuhost::systemPath(path != nullptr ? path : L"");
}

File::Mode openMode(UINT flags, const std::string& path) {
    if (!writes(flags))
        return File::Mode::read;
    std::error_code error;
    if ((flags & CFile::modeCreate) != 0 && !std::filesystem::exists(zuhost::platform::pathOf(path), error))
        return File::Mode::replace;
    return File::Mode::update;
}

} // namespace

CFile::CFile() = default;

CFile::CFile(const wchar_t* path, UINT flags) {
    CFileException error;
    if (!CFile::Open(path, flags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile() {
    if (handle_ == nullptr)
        return;
    try {
        CFile::Close();
    } catch (CFileException* error) {
        // Destructors do not throw; callers that need the result call Close.
        error->Delete();
        handle_.reset();
    }
}

BOOL CFile::Open(const wchar_t* path, UINT flags, CFileException* error) {
    const std::string file = systemPathOf(path);
    auto handle = std::make_unique<Handle>();
    int systemError = file.empty() ? ENOENT : 0;
    if (systemError == 0 && creates(flags)) {
        handle->creation = std::make_unique<AtomicFile>(file);
        systemError = handle->creation->error();
    } else if (systemError == 0) {
        systemError = handle->file.open(file, openMode(flags, file));
    }
    if (systemError == ENOENT)
        systemError = zuhost::missingFileError(file);
    if (systemError == 0) {
        handle_ = std::move(handle);
        path_ = path;
        return TRUE;
    }
    zuhost::reportFileError(error, systemError, path);
    return FALSE;
}

void CFile::fail(int systemError) {
    if (handle_ != nullptr && handle_->creation != nullptr)
        handle_->creation->setError(systemError);
    SetLastError(zuhost::lastErrorOf(systemError));
    AfxThrowFileException(fileExceptionCauseOf(systemError), static_cast<LONG>(GetLastError()), path_);
}

UINT CFile::Read(void* buffer, UINT count) {
    std::size_t done = 0;
    const int error =
        handle_ == nullptr ? EBADF : handle_->file.read(static_cast<char*>(buffer), count, done);
    if (error != 0)
        fail(error);
    return static_cast<UINT>(done);
}

void CFile::Write(const void* buffer, UINT count) {
    if (handle_ == nullptr)
        fail(EBADF);
    const std::string_view bytes(static_cast<const char*>(buffer), count);
    if (handle_->creation != nullptr) {
        handle_->creation->write(bytes);
        handle_->written += count;
    }
    const int error = handle_->creation != nullptr ? handle_->creation->error() : handle_->file.write(bytes);
    if (error != 0)
        fail(error);
}

ULONGLONG CFile::Seek(std::int64_t offset, UINT from) {
    if (handle_ == nullptr)
        fail(EBADF);
    constexpr int kOrigins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    std::int64_t position = 0;
    if (handle_->creation != nullptr || from > end ||
        handle_->file.seek(offset, kOrigins[from], position) != 0)
        AfxThrowFileException(CFileException::badSeek, ERROR_INVALID_PARAMETER, path_);
    return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetLength() {
    if (handle_ != nullptr && handle_->creation != nullptr)
        return handle_->written;
    const auto position = static_cast<std::int64_t>(CFile::Seek(0, current));
    const ULONGLONG length = CFile::Seek(0, end);
    CFile::Seek(position, begin);
    return length;
}

ULONGLONG CFile::GetPosition() {
    return handle_ != nullptr && handle_->creation != nullptr ? handle_->written : CFile::Seek(0, current);
}

void CFile::Close() {
    if (handle_ == nullptr)
        return;
    const std::unique_ptr<Handle> handle = std::move(handle_);
    const int error = handle->creation != nullptr ? handle->creation->commit() : handle->file.close();
    if (error != 0)
        fail(error);
}

void CFile::Abort() {
    handle_.reset();
}

void CFile::Remove(const wchar_t* path) {
    if (const int error = zuhost::file_ops::remove(systemPathOf(path)))
        AfxThrowFileException(fileExceptionCauseOf(error), static_cast<LONG>(zuhost::lastErrorOf(error)),
                              path);
}

void CFile::Rename(const wchar_t* from, const wchar_t* to) {
    if (const int error = zuhost::file_ops::rename(systemPathOf(from), systemPathOf(to)))
        AfxThrowFileException(fileExceptionCauseOf(error), static_cast<LONG>(zuhost::lastErrorOf(error)),
                              from);
}
