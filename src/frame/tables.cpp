#include <zucomn/tables.h>

#include "block_reader.h"
#include "environment.h"
#include "line_splitter.h"
#include "module_state.h"
#include "resource_ids.h"
#include "text_pool.h"
#include "text_view.h"

#include <zucomn/frame.h>
#include <zucomn/settings.h>

#include <memory>
#include <utility>

namespace {

/// Returns NUL when neither the caller nor the settings name a separator.
wchar_t separatorOf(const wchar_t* given) {
    if (given != nullptr)
        return *given;
    const CString value = zu::namedEnvironmentSetting(zu::text::kSeparator).value_or(CString());
    return value.IsEmpty() ? L'\0' : value.GetAt(0);
}

/// Collects the fields of a table in one list.
class FieldList {
public:
    using Kept = CStringArray;

    void startRecord() {}
    void add(std::wstring_view field) { fields_.Add(pool_.make(field)); }
    void moveTo(Kept& fields) {
        for (int i = 0; i < fields_.GetSize(); ++i)
            fields.Add(std::move(fields_[i]));
    }
    static void discard(Kept& fields) { fields.RemoveAll(); }

private:
    CStringArray fields_;
    zu::TextPool pool_;
};

/// Collects the fields of a table in one list for each record.
class RecordList {
public:
    using Kept = CPtrArray;

    RecordList() = default;
    RecordList(const RecordList&) = delete;
    RecordList& operator=(const RecordList&) = delete;
    ~RecordList() { ZuComn_RemoveAllFree(records_); }

    void startRecord() {
        // Most records of a table have as many fields as their predecessor.
        auto record = pool_.makeArray(current_ != nullptr ? current_->GetSize() : 0);
        current_ = record.get();
        records_.Add(static_cast<CObject*>(record.release()));
    }
    void add(std::wstring_view field) { current_->Add(pool_.make(field)); }
    void moveTo(Kept& records) {
        records.Append(records_);
        records_.RemoveAll();
    }
    static void discard(Kept& records) { ZuComn_RemoveAllFree(records); }

private:
    CPtrArray records_;
    CStringArray* current_ = nullptr;
    zu::TextPool pool_;
};

/// How lines are split, and which of their fields are kept.
struct Format {
    wchar_t separator;
    zu::ColumnSelection columns;
};

template <typename List>
struct Part {
    List list;
    bool endsTable = false;
};

template <typename List>
std::unique_ptr<Part<List>> readPart(zu::LineBlock& block, const Format& format) {
    auto part = std::make_unique<Part<List>>();
    for (CString line; !part->endsTable && block.readLine(line);) {
        part->endsTable = zu::endsTable(zu::view(line));
        const std::wstring_view data = zu::withoutTrailingSpaces(zu::view(line));
        if (part->endsTable || data.empty() || zu::isComment(data))
            continue;
        part->list.startRecord();
        zu::splitLine(data, format.separator, format.columns,
                      [&part](std::wstring_view field) { part->list.add(field); });
    }
    return part;
}

template <typename List>
void readParts(CStdioFile& file, const Format& format, typename List::Kept& kept) {
    zu::BlockReader<std::unique_ptr<Part<List>>> parts(
        file, [&format](zu::LineBlock block) { return readPart<List>(block, format); });
    while (const auto part = parts.next()) {
        (*part)->list.moveTo(kept);
        if ((*part)->endsTable)
            return;
    }
}

bool skipLines(CStdioFile& file, int count) {
    CString line;
    for (int i = 0; i < count; ++i)
        if (file.ReadString(line) == FALSE)
            return false;
    return true;
}

template <typename List>
int readTable(const wchar_t* path, typename List::Kept& kept, int skip, const wchar_t* columns,
              const wchar_t* separator) {
    const zu::ResourceScope scope;
    const Format format{separatorOf(separator), zu::ColumnSelection(columns)};
    CStdioFile file;
    if (format.separator == L'\0' || path == nullptr ||
        !file.Open(path, CFile::modeRead | CFile::typeText | CFile::shareDenyNone))
        return -1;
    kept.RemoveAll();
    try {
        if (skipLines(file, skip))
            readParts<List>(file, format, kept);
        return kept.IsEmpty() ? -1 : 0;
    } catch (CFileException* error) {
        error->Delete();
        List::discard(kept);
        return -1;
    }
}

} // namespace

int ZuComn_ReadConfigFile(const wchar_t* path, CStringArray& fields, int skip, const wchar_t* columns,
                          const wchar_t* separator, int /*unused*/) {
    return readTable<FieldList>(path, fields, skip, columns, separator);
}

int ZuComn_ReadConfigFile(const wchar_t* path, CPtrArray& records, int skip, const wchar_t* columns,
                          const wchar_t* separator, int /*unused*/) {
    return readTable<RecordList>(path, records, skip, columns, separator);
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
