#pragma once

#include <afxcoll.h>

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace zu {

/// Application name of the extended data that stores the attribute record.
inline constexpr const wchar_t* kAttributeApplication = L"ZU_ATTR";

/// Separates the fields of the record's strings and of attribute files.
inline constexpr wchar_t kFieldSeparator = L'|';

/// A row has nine columns; columns 3 to 8 are its stored fields.
inline constexpr int kRowColumns = 9;
inline constexpr int kFirstStoredColumn = 3;
inline constexpr int kStoredFields = 6;

/// The stored fields of one item.
using ItemFields = std::array<CString, kStoredFields>;

/// A decoded record: the two values of the entity and its items.
struct AttributeRecord {
    CString first;
    CString second;
    std::vector<ItemFields> items;
};

/// Splits a text at every separator; returns one field more than there are separators.
[[nodiscard]] std::vector<CString> splitFields(const CString& text);

/// Returns the strings of a record: the header with the number of items, then one string per item. Values are
/// trimmed. A record without items has no strings.
[[nodiscard]] std::vector<CString> encodeRecord(const AttributeRecord& record);

/// Parses the strings of a record. The strings present count, not the number in the header. Missing fields
/// are empty; fields after the sixth are ignored. Returns nullopt for an empty list.
[[nodiscard]] std::optional<AttributeRecord> decodeRecord(const CStringArray& strings);

/// Returns the value of the first item with the id, without the blanks around it: a view into the strings of
/// the record, empty when no item has the id.
[[nodiscard]] std::wstring_view itemValue(const CStringArray& strings, std::wstring_view id);

} // namespace zu
