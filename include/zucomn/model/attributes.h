#pragma once

#include "../export.h"

#include <dbid.h>

#include <array>
#include <span>
#include <string>
#include <vector>

namespace zucomn {

/// A row of an element's attribute record: two values of the element, the attribute's display name, its id,
/// its value, its kind, its label, its number and its mark.
using AttributeRow = std::array<std::wstring, 9>;

/// Returns the rows of an element, in stored order; none for an element without a record.
[[nodiscard]] ZUCOMN_API std::vector<AttributeRow> readAttributes(AcDbObjectId element);

/// A value to be written under an attribute id ("S401"). A value must not contain "|": it separates the
/// fields of a record.
struct AttributeValue {
    std::wstring id;
    std::wstring value;
};

enum class EditOutcome {
    changed,
    unchanged,   ///< It has these values already.
    noAttribute, ///< It has none of the attributes.
    lockedLayer, ///< Its layer is locked.
    failed,      ///< Its record can't be written.
};

struct EditedElement {
    AcDbObjectId element;
    EditOutcome outcome = EditOutcome::failed;
    bool hasAttribute = false; ///< It has one of the attributes, whatever the outcome.
    bool isUnplaced =
        false;          ///< Changed, and its mounting height ("S401") is no number: sections can't place it.
    std::wstring layer; ///< The name of the locked layer.
};

/// Writes the values into the record of every element that has the attributes, as one undo step of each
/// drawing. Nothing is shown but the progress meter. Returns what happened to each element, in order; what
/// was not changed is untouched. The time grows with the number of elements.
ZUCOMN_API std::vector<EditedElement> editAttributes(std::span<const AcDbObjectId> elements,
                                                     std::span<const AttributeValue> values);

} // namespace zucomn
