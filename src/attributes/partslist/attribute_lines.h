#pragma once

#include "attributes/model/shown_items.h"

#include <afxcoll.h>

#include <span>
#include <vector>

namespace zu {

// The attribute lines of a parts list: each is laid out as the item strings of an attribute record, six
// fields that end in "|", the first the attribute id, the second the value.

/// Lines that follow one another.
struct LineRange {
    int first = 0;
    int count = 0;
};

/// Appends the items of a text to the lines, each with its full six fields. An item ends with its sixth field
/// or at a line end, whichever comes first; what follows the last "|" of a line counts as a field.
void appendItems(const CString& text, CStringArray& lines);

/// The line with exactly six fields: missing ones are added, empty; those beyond the sixth are left out.
[[nodiscard]] CString paddedLine(const CString& line);

/// False for a value with "|" or a line end, which no line can keep.
[[nodiscard]] bool canHold(const CString& value);

/// The line, padded, with another value.
[[nodiscard]] CString withValue(const CString& line, const CString& value);

/// The text of a file: all lines, with `lineEnds` each followed by "\n".
[[nodiscard]] CString joinedLines(const CStringArray& lines, bool lineEnds);

/// The parts that the lines describe, one after the other: a part ends before the line whose attribute id it
/// already has.
[[nodiscard]] std::vector<LineRange> partsOf(const CStringArray& lines);

/// The items that the property list shows for the lines: those that every part has are shared, a value that
/// is not the same everywhere is "*各種*".
[[nodiscard]] std::vector<ShownItem> shownItemsOf(const CStringArray& lines);

/// Puts the values of the property list into the lines. As with entities, items that may not be edited, the
/// value "*各種*" and values that no line can keep are passed over.
void applyToLines(CStringArray& lines, std::span<const ShownItem> items, const ParameterIndex& parameters);

/// What a line is called: the display name of its attribute, else the name in the line itself (its fourth
/// field), else the attribute id.
[[nodiscard]] CString lineName(const CString& line);

} // namespace zu
