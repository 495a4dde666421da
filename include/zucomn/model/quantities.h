#pragma once

#include "../export.h"
#include "filter.h"

#include <dbid.h>

#include <cstddef>
#include <string>
#include <vector>

class AcDbDatabase;

namespace zucomn {

/// What distinguishes the rows of quantities.
enum class QuantityField { kind, group, what, block, size, use };

/// The attribute ids that quantities are read from. Of several ids the first with a value counts.
struct QuantityAttributes {
    std::vector<std::wstring> size;
    std::vector<std::wstring> use;
    std::vector<std::wstring> height; ///< Only the first counts.
};

/// Returns the ids that "ZuConfig.ini" names in its section "数量集計" under "サイズ", "用途" and "取付高",
/// separated by commas; for missing ones the defaults: S302 and S303, S501, S401.
[[nodiscard]] ZUCOMN_API QuantityAttributes quantityAttributes();

/// What is to be counted, and in which rows.
struct QuantityQuery {
    std::vector<QuantityField> by{QuantityField::kind, QuantityField::what, QuantityField::block,
                                  QuantityField::size};
    ElementFilter filter;
    bool includesOthers = false; ///< Also block references that are no elements of the product.
    QuantityAttributes attributes = quantityAttributes();
};

/// A number of elements and their length.
struct Quantity {
    std::size_t count = 0;
    /// Length of the route lines in plan, in drawing units: the distance between the two connection points of
    /// each. Other elements, and lines without exactly two points, have none.
    double length = 0.0;
    /// The same with heights. The end of a line has the height of the fitting that alone joins it there: of a
    /// fitting between two heights, such as an S fitting, the one that is nearest to the line's own. A line
    /// with a height at both ends is as long as the slope between them; others are as long as in plan.
    double trueLength = 0.0;
};

/// The elements that agree in every field of the query's `by`; the other fields are empty.
struct QuantityRow {
    int kind = -1;      ///< The link kind, -1 without one.
    std::wstring group; ///< The name, or the handle of a group without one; empty for elements in no group.
    int code = 0;       ///< The element code; see elementKindName.
    std::wstring block;
    std::wstring size;
    std::wstring use;
    Quantity quantity;
};

/// The elements of one link kind and element code.
struct QuantityTotal {
    int kind = -1;
    int code = 0;
    Quantity quantity;
};

/// What a drawing holds.
struct Quantities {
    /// Sorted by the fields in the order of the query's `by`; texts: empty ones, then numbers by value, then
    /// others by character code; `what` by elementKindName.
    std::vector<QuantityRow> rows;
    std::vector<QuantityTotal> totals;            ///< Of every element once; sorted by kind, then what.
    Quantity sum;                                 ///< Of every element once.
    std::vector<AcDbObjectId> linesWithoutLength; ///< Counted route lines whose length is unknown.
};

/// Counts the elements of model space that pass the query's filter. An element counts once, with
/// QuantityField::group once for each group that lists it (with a group in the filter, for that one only).
/// The same drawing always gives the same result. The time is that of reading every element and grows with
/// their number.
[[nodiscard]] ZUCOMN_API Quantities countQuantities(const AcDbDatabase& drawing, const QuantityQuery& query);

} // namespace zucomn
