#include <zucomn/link_info.h>

#include "library_text.h"
#include "link_merge.h"
#include "resource_ids.h"
#include "text_view.h"

#include <zucomn/settings.h>
#include <zucomn/tables.h>

#include <afxwin.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace {

using ValuesByKey = std::unordered_map<std::wstring, CString>;

ValuesByKey valuesOf(const CPtrArray& records) {
    ValuesByKey values;
    std::wstring key;
    for (int i = 0; i < records.GetSize(); ++i) {
        const auto& fields = *static_cast<const CStringArray*>(static_cast<const CObject*>(records[i]));
        if (fields.GetSize() == 1) {
            key = std::wstring(zu::view(fields[0])) + L'\n';
            continue;
        }
        key += zu::view(fields[0]);
        values.try_emplace(key, fields[1]);
        key.clear();
    }
    return values;
}

std::vector<zu::LinkPair> pairsOf(const CStringArray& keys, const CStringArray& values) {
    std::vector<zu::LinkPair> pairs;
    std::unordered_set<std::wstring_view> seen;
    for (int i = 0; i < keys.GetSize(); ++i) {
        const std::wstring_view value = zu::view(values[i]);
        if (seen.insert(zu::view(keys[i])).second)
            pairs.push_back({std::wstring(zu::view(keys[i])), std::wstring(value)});
    }
    return pairs;
}

struct WorkingNames {
    CString temporary;
    CString backup;
};

/// Returns false when a name belongs in the system folder but the settings name no system folder.
bool findNames(const CString& path, WorkingNames& names) {
    const int separator = std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/'));
    const int point = path.ReverseFind(L'.');
    CString system;
    if (!ZuComn_GetSystemPath(system) && (separator < 0 || point < 0))
        return false;
    if (separator >= 0)
        names.temporary = path.Left(separator + 1) + L"__Temp.tmp";
    else
        names.temporary.Format(L"%s\\LinkInfo.tmp", system);
    if (point >= 0)
        names.backup = path.Left(point) + L".bak";
    else
        names.backup.Format(L"%s\\LinkInfo.lif", system);
    return true;
}

std::string readAll(CFile& file) {
    constexpr UINT kPiece = 1U << 20U;
    std::string bytes;
    for (std::size_t filled = 0;;) {
        bytes.resize(filled + kPiece);
        const UINT count = file.Read(bytes.data() + filled, kPiece);
        filled += count;
        if (count < kPiece) {
            bytes.resize(filled);
            return bytes;
        }
    }
}

/// Returns an empty text when the file does not exist. Throws when an existing file cannot be read: saving
/// would otherwise lose its records.
std::string readExisting(const CString& path) {
    CFile file;
    CFileException error;
    if (file.Open(path, CFile::modeRead | CFile::shareDenyNone, &error))
        return readAll(file);
    if (error.m_cause != CFileException::fileNotFound)
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
    return {};
}

void writeAll(CFile& file, std::string_view bytes) {
    constexpr std::size_t kPiece = std::size_t{1} << 30U;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), kPiece)))
        file.Write(bytes.data(), static_cast<UINT>(std::min(bytes.size(), kPiece)));
    file.Close();
}

bool writeTemporary(const CString& temporary, const CString& path, const std::vector<zu::LinkPair>& pairs) {
    CFile file;
    if (!file.Open(temporary, CFile::modeCreate | CFile::modeWrite | CFile::shareDenyWrite))
        return false;
    try {
        if (const auto merged = zu::mergeLinks(readExisting(path), pairs)) {
            writeAll(file, *merged);
            return true;
        }
    } catch (CFileException* error) {
        error->Delete();
        // Reported by the result; the file being created is discarded below.
    }
    file.Abort();
    return false;
}

void showFailedSave(DWORD error) {
    CString message;
    message.Format(zu::libraryText(zu::text::kSaveFailed), static_cast<int>(error));
    AfxMessageBox(message, MB_OK | MB_ICONSTOP);
}

bool replaceTarget(const WorkingNames& names, const CString& path) {
    // A target that is its own backup must not be deleted before the new file exists. The backup is a copy,
    // not the renamed target, so that the path always names a file and keeps its symbolic link and
    // permissions.
    if (names.backup.CompareNoCase(path) != 0) {
        DeleteFileW(names.backup);
        CopyFileW(path, names.backup, FALSE);
    }
    if (!CopyFileW(names.temporary, path, FALSE)) {
        showFailedSave(GetLastError());
        return false;
    }
    DeleteFileW(names.temporary);
    return true;
}

} // namespace

bool ZuComn_GetLinkInfo(const wchar_t* path, const CStringArray& keys, CStringArray& values) {
    CPtrArray records;
    if (ZuComn_ReadConfigFile(path, records, 0, nullptr, L"|") != 0) {
        ZuComn_RemoveAllFree(records);
        return false;
    }
    const ValuesByKey found = valuesOf(records);
    ZuComn_RemoveAllFree(records);
    const int count = keys.GetSize(); // `keys` and `values` may be the same array.
    for (int i = 0; i < count; ++i) {
        const auto value = found.find(std::wstring(zu::view(keys[i])));
        values.Add(value != found.end() ? value->second : CString());
    }
    return true;
}

bool ZuComn_SaveLinkInfo(const wchar_t* path, const CStringArray& keys, const CStringArray& values) {
    const CString target(path);
    if (values.GetSize() < keys.GetSize())
        return false;
    const std::vector<zu::LinkPair> pairs = pairsOf(keys, values);
    if (!std::all_of(pairs.begin(), pairs.end(), zu::isReadable))
        return false;
    WorkingNames names;
    if (target.IsEmpty() || !findNames(target, names) || names.temporary.CompareNoCase(target) == 0)
        return false;
    DeleteFileW(names.temporary);
    return writeTemporary(names.temporary, target, pairs) && replaceTarget(names, target);
}
