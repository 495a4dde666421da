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

/// The line, padded, with another value.
[[nodiscard]] CString withValue(const CString& line, const CString& value);

/// The text of a file: all lines, with `lineEnds` each followed by "\n".
[[nodiscard]] CString joinedLines(const CStringArray& lines, bool lineEnds);

/// The parts that the lines describe, one after the other: a part ends before the line whose attribute id it
/// already has.
[[nodiscard]] std::vector<LineRange> partsOf(const CStringArray& lines);

/// Puts the values of the property list into the chosen lines. As with entities, items that may not be
/// edited, the value "*各種*" and values that hold "|" are passed over. True when a line changed.
bool applyToLines(CStringArray& lines, std::span<const int> chosen, std::span<const ShownItem> items,
                  const ParameterIndex& parameters);

} // namespace zu
