// Any bytes as a table file and as a link information file: both readers agree on the records, and what a
// save wrote is read back.
#include "../support/memory_file.h"
#include "../support/require.h"

#include "frame/link_merge.h"
#include "frame/text_encoding.h"

#include <zucomn/link_info.h>
#include <zucomn/tables.h>

#include <string>
#include <string_view>

using zu::fuzz::require;

namespace {

int fieldsInRecords(const CPtrArray& records) {
    int count = 0;
    for (int i = 0; i < records.GetSize(); ++i)
        count += static_cast<const CStringArray*>(static_cast<const CObject*>(records[i]))->GetSize();
    return count;
}

void checkTable(const CString& path, const wchar_t* columns) {
    CStringArray flat;
    CPtrArray records;
    const int flatResult = ZuComn_ReadConfigFile(path, flat, 1, columns, L"|");
    const int recordResult = ZuComn_ReadConfigFile(path, records, 1, columns, L"|");
    require(flatResult == (flat.IsEmpty() ? -1 : 0), "the result doesn't follow from the fields");
    require(recordResult == (records.IsEmpty() ? -1 : 0), "the result doesn't follow from the records");
    require(fieldsInRecords(records) == flat.GetSize(), "the two forms differ");
    ZuComn_RemoveAllFree(records);
}

/// Dropped lines would bring such a mark to the front, so that the merge is refused.
bool hasMarkAfterFirstLine(std::string_view bytes) {
    const auto has = [bytes](std::string_view mark) { return bytes.find(mark) != std::string_view::npos; };
    return has("\n\xFF\xFE") || has("\n\xFE\xFF") || has("\n\xEF\xBB\xBF");
}

void checkMerge(const zu::fuzz::MemoryFile& file, std::string_view bytes) {
    const auto once = zu::mergeLinks(bytes, {});
    if (!once)
        return require(hasMarkAfterFirstLine(bytes), "a merge of nothing failed");
    require(zu::mergeLinks(*once, {}) == once, "a merge of nothing changed something");
    const auto merged = zu::mergeLinks(bytes, {{L"zu-key", L"zu-value"}});
    require(merged.has_value(), "a pair was not merged");
    // The first merge may drop the line that the kind of line end was detected from; the next ones change
    // nothing.
    const auto again = zu::mergeLinks(*merged, {{L"zu-key", L"zu-value"}});
    require(zu::mergeLinks(*again, {{L"zu-key", L"zu-value"}}) == again, "the same pair changed something");
    CStringArray keys;
    keys.Add(L"zu-key");
    CStringArray values;
    if (ZuComn_GetLinkInfo(file.fill(*merged), keys, values))
        require(values.GetSize() == 1, "a look-up gave not one value");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zu::fuzz::MemoryFile file;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const CString path = file.fill(bytes);
    checkTable(path, nullptr);
    checkTable(path, L"3,1");
    checkMerge(file, bytes);
    return 0;
}
