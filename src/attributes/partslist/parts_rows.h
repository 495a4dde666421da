#pragma once

#include "attributes/partslist/attribute_lines.h"

namespace zu {

/// A row of the two-level list: a part, or one of its lines.
struct PartsRow {
    int part = 0;
    int line = kWholePart;

    static constexpr int kWholePart = -1;
    [[nodiscard]] bool isPart() const { return line == kWholePart; }
};

/// The two-level list of attribute lines: each part, followed by its lines.
class PartsRows {
public:
    PartsRows() = default;
    explicit PartsRows(const CStringArray& lines);

    [[nodiscard]] std::span<const PartsRow> rows() const { return rows_; }
    [[nodiscard]] int partCount() const { return static_cast<int>(parts_.size()); }

    /// The lines that the rows stand for, in order, each once: for a part all of its lines. Rows that are not
    /// there are passed over.
    [[nodiscard]] std::vector<int> linesOf(std::span<const int> rows) const;

    /// The items that the property list shows for some of the lines: those that every part concerned has are
    /// shared, a value that is not the same everywhere is "*各種*".
    [[nodiscard]] std::vector<ShownItem> shownItemsOf(const CStringArray& lines,
                                                      std::span<const int> chosen) const;

private:
    std::vector<LineRange> parts_;
    std::vector<PartsRow> rows_;
};

/// What a row is called: the display name of its attribute, else the name in the line itself (its fourth
/// field), else the attribute id.
[[nodiscard]] CString lineName(const CString& line);

} // namespace zu
