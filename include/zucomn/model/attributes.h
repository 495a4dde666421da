#pragma once

#include "../export.h"

#include <dbid.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zucomn {

/// A row of an element's attribute record: the two values of the element, then the attribute's display name,
/// id, value, kind, label, number and mark.
using AttributeRow = std::array<std::wstring, 9>;

/// Returns the rows of an element in stored order; an empty vector for an element without a record.
[[nodiscard]] ZUCOMN_API std::vector<AttributeRow> readAttributes(AcDbObjectId element);

/// The reason why a text cannot be stored as a value.
enum class ValueFault {
    none,
    separator,   ///< It contains "|", which separates the fields of a record.
    lineEnd,     ///< It contains a line end.
    placeholder, ///< It is "*各種*", which is shown in place of values that differ.
};
/// Returns the first of these reasons that applies to a text, `none` when it can be stored.
[[nodiscard]] ZUCOMN_API ValueFault valueFault(std::wstring_view value);

/// A value to write under an attribute id such as "S401". A value with a fault is not written.
struct AttributeValue {
    std::wstring id;
    std::wstring value;
};

/// Returns the path of the parameter table, which says which attributes may be edited; empty when the
/// settings name no folder for it.
[[nodiscard]] ZUCOMN_API std::wstring parameterTableFile();

/// Returns whether the parameter table, read anew, lets an attribute be edited; nullopt when it cannot be
/// read or holds no records. Attributes that it does not list are read-only.
[[nodiscard]] ZUCOMN_API std::optional<bool> isEditableAttribute(std::wstring_view id);

/// The outcome of an edit for one element.
enum class EditOutcome {
    changed,
    unchanged,   ///< The element has these values already.
    noAttribute, ///< The element has none of the attributes.
    lockedLayer, ///< The element's layer is locked.
    failed,      ///< The record cannot be written.
};

/// What an edit did to an element.
struct EditedElement {
    AcDbObjectId element;
    EditOutcome outcome = EditOutcome::failed;
    bool hasAttribute = false; ///< The element has one of the attributes, whatever the outcome.
    /// The element was changed, and its mounting height ("S401") is not a number, so that section drawings
    /// cannot place it.
    bool isUnplaced = false;
    std::wstring layer; ///< Name of the locked layer.
};

/// Writes the values to the records of all elements that have the attributes, as one undo step per drawing.
/// Shows the progress meter but no message. Returns the outcome for each element in order; elements that are
/// not changed are untouched. The time is proportional to the number of elements.
ZUCOMN_API std::vector<EditedElement> editAttributes(std::span<const AcDbObjectId> elements,
                                                     std::span<const AttributeValue> values);

} // namespace zucomn
