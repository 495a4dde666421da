#pragma once

#include "../export.h"

#include <dbid.h>

#include <array>
#include <span>
#include <string>
#include <vector>

namespace zucomn {

/// A row of an element's attribute record: the two values of the element, then the attribute's display name,
/// id, value, kind, label, number and mark.
using AttributeRow = std::array<std::wstring, 9>;

/// Returns the rows of an element in stored order; an empty vector for an element without a record.
[[nodiscard]] ZUCOMN_API std::vector<AttributeRow> readAttributes(AcDbObjectId element);

/// A value to write under an attribute id such as "S401". It must not contain "|", which separates the fields
/// of a record.
struct AttributeValue {
    std::wstring id;
    std::wstring value;
};

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
