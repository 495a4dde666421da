#pragma once

#include <afxcoll.h>

#include <array>
#include <optional>
#include <vector>

namespace zu {

/// The application of extended data that holds the record.
inline constexpr const wchar_t* kAttributeApplication = L"ZU_ATTR";

/// Number of columns of a row, and of its stored fields (columns 3 to 8).
inline constexpr int kRowColumns = 9;
inline constexpr int kFirstStoredColumn = 3;
inline constexpr int kStoredFields = 6;

/// Values of one item as stored.
using ItemFields = std::array<CString, kStoredFields>;

/// A record taken apart: the two values of the entity, and its items.
struct AttributeRecord {
    CString first;
    CString second;
    std::vector<ItemFields> items;
};

/// The texts between separators; one more than there are separators.
[[nodiscard]] std::vector<CString> splitAtBars(const CString& text);

/// The strings of a record: the header with the number of items, then one for each item; values are trimmed.
/// No strings for a record without items.
[[nodiscard]] std::vector<CString> encodeRecord(const AttributeRecord& record);

/// Takes strings apart, whatever the header's count says; fields that are missing are empty, more than six
/// are left out. Nullopt without strings.
[[nodiscard]] std::optional<AttributeRecord> decodeRecord(const CStringArray& strings);

} // namespace zu
