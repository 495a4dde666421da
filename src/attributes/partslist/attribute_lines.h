#pragma once

#include "attributes/model/shown_items.h"

#include <afxcoll.h>

#include <span>
#include <vector>

namespace zu {

// The attribute lines of a parts list. A line has the form of an item string of an attribute record: six
// fields that each end in "|"; the first is the attribute id, the second the value.

/// A range of consecutive lines.
struct LineRange {
    int first = 0;
    int count = 0;
};

/// Parses the items of a text and appends each as a line of six fields. An item ends after its sixth field or
/// at a line end, whichever comes first. Text after the last "|" of a line counts as a field unless it is
/// blank.
void appendItems(const CString& text, CStringArray& lines);

/// Returns the line with exactly six fields: missing ones are added, those after the sixth are removed.
[[nodiscard]] CString paddedLine(const CString& line);

/// Returns the line, padded to six fields, with the given value.
[[nodiscard]] CString withValue(const CString& line, const CString& value);

/// Joins the lines to the text of a file; `lineEnds` appends "\n" to each line.
[[nodiscard]] CString joinedLines(const CStringArray& lines, bool lineEnds);

/// Splits the lines into parts: a part ends before a line whose attribute id it already contains.
[[nodiscard]] std::vector<LineRange> partsOf(const CStringArray& lines);

/// Returns the items of the property list for the lines: items of all parts are shared, and values that
/// differ become "*各種*".
[[nodiscard]] std::vector<ShownItem> shownItemsOf(const CStringArray& lines);

/// Writes the writable values of the items (see writableItems) into the lines with their ids.
void applyToLines(CStringArray& lines, std::span<const ShownItem> items, const ParameterIndex& parameters);

/// Returns the display name of the line's attribute, else its label (the fourth field), else the attribute
/// id.
[[nodiscard]] CString lineName(const CString& line);

} // namespace zu
