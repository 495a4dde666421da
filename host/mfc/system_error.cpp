#include "zuhost/system_error.h"

#include "afx.h"

#include <zuhost/platform/error_numbers.h>
#include <zuhost/platform/paths.h>

#include <array>
#include <filesystem>
#include <system_error>

namespace zuhost {

namespace {

struct Translation {
    int systemError;
    DWORD lastError;
    int cause;
};

constexpr std::array<Translation, 20> kTranslations{{
    {0, ERROR_SUCCESS, CFileException::none},
    {ENOENT, ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ENOTDIR, ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ENAMETOOLONG, ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ELOOP, ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {EACCES, ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {EPERM, ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {EROFS, ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {EISDIR, ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {EINVAL, ERROR_INVALID_NAME, CFileException::badPath},
    {ESTALE, ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {EBUSY, ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {EBADF, ERROR_INVALID_HANDLE, CFileException::invalidFile},
    {EEXIST, ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ENOSPC, ERROR_DISK_FULL, CFileException::diskFull},
    {EDQUOT, ERROR_DISK_FULL, CFileException::diskFull},
    {EFBIG, ERROR_DISK_FULL, CFileException::diskFull},
    {EILSEQ, ERROR_NO_UNICODE_TRANSLATION, CFileException::genericException},
}};

constexpr Translation kUnknown{EIO, ERROR_WRITE_FAULT, CFileException::hardIO};

const Translation& translation(int systemError) {
    for (const Translation& t : kTranslations)
        if (t.systemError == systemError)
            return t;
    return kUnknown;
}

} // namespace

DWORD lastErrorOf(int systemError) {
    return translation(systemError).lastError;
}

int fileExceptionCauseOf(int systemError) {
    return translation(systemError).cause;
}

int fileExceptionCauseOfLastError(DWORD lastError) {
    for (const Translation& t : kTranslations)
        if (t.lastError == lastError)
            return t.cause;
    return lastError == kUnknown.lastError ? kUnknown.cause : CFileException::genericException;
}

int missingFileError(const std::string& path) {
    const std::filesystem::path folder = platform::pathOf(path).parent_path();
    std::error_code error;
    return folder.empty() || std::filesystem::is_directory(folder, error) ? ENOENT : ENOTDIR;
}

std::string errorText(int systemError) {
    switch (systemError) {
    case ESTALE:
        return "The file was changed or removed by another program since it was opened";
    case EBUSY:
        return "The file or its folder is in use by another program";
    case EILSEQ:
        return "The file's name or encoding can't hold all characters";
    default:
        return std::generic_category().message(systemError);
    }
}

std::string lastErrorText(DWORD lastError) {
    for (const Translation& t : kTranslations)
        if (t.lastError == lastError)
            return errorText(t.systemError);
    return errorText(kUnknown.systemError);
}

} // namespace zuhost
