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

/// Takes the fields of a table one after the other.
class FieldList {
public:
    explicit FieldList(CStringArray& fields) : fields_(fields) {}

    void empty() { fields_.RemoveAll(); }
    void giveUp() { fields_.RemoveAll(); }
    void startRecord() {}
    void add(std::wstring_view field) { fields_.Add(pool_.Make(field)); }
    [[nodiscard]] bool stored() const { return !fields_.IsEmpty(); }

private:
    CStringArray& fields_;
    CStringPool pool_;
};

/// Takes them record by record.
class RecordList {
public:
    explicit RecordList(CPtrArray& records) : records_(records) {}

    void empty() { records_.RemoveAll(); }
    void giveUp() { ZuComn_RemoveAllFree(records_); }
    void startRecord() {
        // Most records of a table have as many fields as the one before.
        auto record = pool_.MakeArray(current_ != nullptr ? current_->GetSize() : 0);
        current_ = record.get();
        records_.Add(static_cast<CObject*>(record.release()));
    }
    void add(std::wstring_view field) { current_->Add(pool_.Make(field)); }
    [[nodiscard]] bool stored() const { return !records_.IsEmpty(); }

private:
    CPtrArray& records_;
    CStringArray* current_ = nullptr;
    CStringPool pool_;
};

template <typename List>
int readTable(const wchar_t* path, List&& list, int skip, const wchar_t* columns, const wchar_t* separator) {
    const zu::ResourceScope scope;
    const wchar_t parting = separatorOf(separator);
    CStdioFile file;
    if (parting == L'\0' || path == nullptr ||
        !file.Open(path, CFile::modeRead | CFile::typeText | CFile::shareDenyNone))
        return -1;
    list.empty();
    const zu::ColumnSelection selection(columns);
    try {
        readLines(file, skip, [&](std::wstring_view line) {
            list.startRecord();
            zu::splitLine(line, parting, selection, [&](std::wstring_view field) { list.add(field); });
        });
        return list.stored() ? 0 : -1;
    } catch (const CFileException&) {
        list.giveUp();
        return -1;
    }
}

} // namespace

int ZuComn_ReadConfigFile(const wchar_t* path, CStringArray& fields, int skip, const wchar_t* columns,
                          const wchar_t* separator, int /*unused*/) {
    return readTable(path, FieldList(fields), skip, columns, separator);
}

int ZuComn_ReadConfigFile(const wchar_t* path, CPtrArray& records, int skip, const wchar_t* columns,
                          const wchar_t* separator, int /*unused*/) {
    return readTable(path, RecordList(records), skip, columns, separator);
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
