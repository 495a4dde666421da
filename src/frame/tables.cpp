#include "zucomn/tables.h"

#include "line_splitter.h"
#include "module_state.h"
#include "resource_ids.h"
#include "zucomn/frame.h"
#include "zucomn/settings.h"

#include <memory>

namespace {

/// Null when neither the caller nor the settings name one.
wchar_t separatorOf(const wchar_t* given) {
    if (given != nullptr)
        return *given;
    CString section;
    CString key;
    CString value;
    ZuComn_LoadString(ZuComn_GetResource(), zu::text::kEnvironmentSection, section);
    ZuComn_LoadString(ZuComn_GetResource(), zu::text::kSeparator, key);
    return ZuComn_GetEnv(value, ZUCE_INIFILE, section, key) == 0 && !value.IsEmpty() ? value.GetAt(0) : L'\0';
}

bool endsTable(const CString& line) {
    return line.GetLength() == 3 && line.CompareNoCase(L"END") == 0;
}

template <typename Take>
void readLines(CStdioFile& file, int skip, Take take) {
    CString line;
    for (int i = 0; i < skip; ++i)
        if (!file.ReadString(line))
            return;
    while (file.ReadString(line) && !endsTable(line)) {
        const std::wstring_view data = zu::withoutTrailingSpaces(line.view());
        if (!data.empty() && data.front() != L'#')
            take(data);
    }
}

/// Reads the data lines of a table file. `opened` is called once the file is open, `take` for each data line.
/// False when the file can't be read.
template <typename Opened, typename Take>
bool readTable(const wchar_t* path, int skip, Opened opened, Take take) {
    CStdioFile file;
    if (path == nullptr || !file.Open(path, CFile::modeRead | CFile::typeText | CFile::shareDenyNone))
        return false;
    opened();
    try {
        readLines(file, skip, take);
        return true;
    } catch (const CFileException&) {
        return false;
    }
}

} // namespace

int ZuComn_ReadConfigFile(const wchar_t* path, CStringArray& fields, int skip, const wchar_t* columns,
                          const wchar_t* separator, int /*unused*/) {
    const zu::ResourceScope scope;
    const wchar_t parting = separatorOf(separator);
    if (parting == L'\0' || !ZuComn_findFile(path))
        return -1;
    const zu::ColumnSelection selection(columns);
    bool stored = false;
    const bool read = readTable(
        path, skip, [&fields] { fields.RemoveAll(); },
        [&](std::wstring_view line) {
            zu::splitLine(line, parting, selection, [&](std::wstring_view field) {
                fields.Add(CString(field));
                stored = true;
            });
        });
    return read && stored ? 0 : -1;
}

int ZuComn_ReadConfigFile(const wchar_t* path, CPtrArray& records, int skip, const wchar_t* columns,
                          const wchar_t* separator, int /*unused*/) {
    const zu::ResourceScope scope;
    const wchar_t parting = separatorOf(separator);
    if (parting == L'\0' || !ZuComn_findFile(path))
        return -1;
    const zu::ColumnSelection selection(columns);
    bool stored = false;
    const bool read = readTable(
        path, skip, [&records] { records.RemoveAll(); },
        [&](std::wstring_view line) {
            auto record = std::make_unique<CStringArray>();
            zu::splitLine(line, parting, selection,
                          [&](std::wstring_view field) { record->Add(CString(field)); });
            records.Add(static_cast<CObject*>(record.release()));
            stored = true;
        });
    return read && stored ? 0 : -1;
}

void ZuComn_RemoveAllFree(CPtrArray& list) {
    for (int i = 0; i < list.GetSize(); ++i)
        std::unique_ptr<CObject>(static_cast<CObject*>(list.GetAt(i))).reset();
    list.RemoveAll();
}

int ZuComn_findFile(const wchar_t* path) {
    CFile file;
    return path != nullptr && file.Open(path, CFile::modeRead | CFile::shareDenyNone) ? 1 : 0;
}
