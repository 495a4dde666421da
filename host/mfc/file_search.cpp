#include "afx.h"

#include <shlwapi.h>

CFileFind::~CFileFind() {
    Close();
}

void CFileFind::Close() {
    if (search_ != INVALID_HANDLE_VALUE)
        FindClose(search_);
    search_ = INVALID_HANDLE_VALUE;
    hasCurrent_ = hasNext_ = false;
}

BOOL CFileFind::FindFile(const wchar_t* mask, DWORD /*unused*/) {
    Close();
    const CString wanted = mask != nullptr ? mask : L"*.*";
    search_ = FindFirstFileW(wanted, &next_);
    hasNext_ = search_ != INVALID_HANDLE_VALUE;
    const int separator = max(wanted.ReverseFind(L'\\'), wanted.ReverseFind(L'/'));
    wchar_t full[MAX_PATH * 4] = {};
    const CString folder = separator >= 0 ? wanted.Left(separator + 1) : CString(L".");
    GetFullPathName(folder, static_cast<DWORD>(_countof(full)), full, nullptr);
    root_ = full;
    root_.TrimRight(L"\\/");
    return hasNext_ ? TRUE : FALSE;
}

BOOL CFileFind::FindNextFile() {
    hasCurrent_ = hasNext_;
    if (!hasNext_)
        return FALSE;
    current_ = next_;
    hasNext_ = ::FindNextFileW(search_, &next_) != FALSE;
    return hasNext_ ? TRUE : FALSE;
}

const WIN32_FIND_DATAW& CFileFind::current() const {
    static const WIN32_FIND_DATAW none{};
    return hasCurrent_ ? current_ : none;
}

CString CFileFind::GetFileName() const {
    return current().cFileName;
}

CString CFileFind::GetFileTitle() const {
    const CString name = GetFileName();
    const int point = name.ReverseFind(L'.');
    return point > 0 ? name.Left(point) : name;
}

CString CFileFind::GetFilePath() const {
    return root_ + L"\\" + GetFileName();
}

CString CFileFind::GetRoot() const {
    return root_ + L"\\";
}

ULONGLONG CFileFind::GetLength() const {
    return ULONGLONG{current().nFileSizeHigh} << 32U | current().nFileSizeLow;
}

BOOL CFileFind::MatchesMask(DWORD attributes) const {
    return (current().dwFileAttributes & attributes) != 0 ? TRUE : FALSE;
}

BOOL CFileFind::IsDots() const {
    const CString name = GetFileName();
    return name == L"." || name == L".." ? TRUE : FALSE;
}

BOOL CFileFind::GetLastWriteTime(CTime& time) const {
    if (!hasCurrent_)
        return FALSE;
    time = CTime(current_.ftLastWriteTime);
    return TRUE;
}

BOOL CFile::GetStatus(CFileStatus& status) const {
    return GetStatus(GetFilePath(), status);
}

BOOL CFile::GetStatus(const wchar_t* path, CFileStatus& status) {
    wchar_t full[MAX_PATH] = {};
    const DWORD attributes = GetFileAttributesW(path);
    if (attributes == INVALID_FILE_ATTRIBUTES || GetFullPathName(path, MAX_PATH, full, nullptr) >= MAX_PATH)
        return FALSE;
    status = {};
    lstrcpyn(status.m_szFullName, full, MAX_PATH);
    status.m_attribute = static_cast<BYTE>(attributes & ~FILE_ATTRIBUTE_NORMAL);
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(path, &data);
    if (search != INVALID_HANDLE_VALUE) {
        FindClose(search);
        status.m_mtime = status.m_ctime = status.m_atime = CTime(data.ftLastWriteTime);
        status.m_size = ULONGLONG{data.nFileSizeHigh} << 32U | data.nFileSizeLow;
    }
    return TRUE;
}

CString CFile::GetFileName() const {
    return PathFindFileName(path_);
}

CString CFile::GetFileTitle() const {
    const CString name = GetFileName();
    const int point = name.ReverseFind(L'.');
    return point > 0 ? name.Left(point) : name;
}
