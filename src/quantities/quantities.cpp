#include <zucomn/model/quantities.h>

#include "counted_element.h"
#include "line_lengths.h"
#include "row_order.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/groups.h>

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace zucomn {

namespace {

using zu::CountedElement;
using zu::LineLength;

std::wstring shownName(const Group& group) {
    if (!group.name.empty())
        return group.name;
    ACHAR handle[17];
    group.id.handle().getIntoAsciiBuffer(handle);
    return handle;
}

/// The names of the groups that list each element, each once.
std::unordered_map<AcDbObjectId, std::vector<std::wstring>> groupNames(const AcDbDatabase& drawing,
                                                                       AcDbObjectId only) {
    std::unordered_map<AcDbObjectId, std::vector<std::wstring>> names;
    for (const AcDbObjectId id : groupsOf(drawing)) {
        const std::optional<Group> group = only.isNull() || id == only ? readGroup(id) : std::nullopt;
        if (!group)
            continue;
        const std::unordered_set<AcDbObjectId> members(group->members.begin(), group->members.end());
        for (const AcDbObjectId member : members)
            names[member].push_back(shownName(*group));
    }
    return names;
}

/// Adds up quantities by rows that are equal in some fields.
class Sums {
public:
    explicit Sums(std::vector<QuantityField> by) : quantities_(zu::RowOrder(std::move(by))) {}

    void add(const QuantityRow& row, const std::optional<LineLength>& length) {
        add(quantities_[row], length);
    }
    static void add(Quantity& quantity, const std::optional<LineLength>& length) {
        ++quantity.count;
        if (!length)
            return;
        quantity.length += length->inPlan;
        quantity.trueLength += length->sloping;
    }
    [[nodiscard]] std::vector<QuantityRow> rows() const {
        std::vector<QuantityRow> rows;
        for (const auto& [row, quantity] : quantities_)
            rows.emplace_back(row).quantity = quantity;
        return rows;
    }

private:
    std::map<QuantityRow, Quantity, zu::RowOrder> quantities_;
};

bool has(const std::vector<QuantityField>& by, QuantityField field) {
    return std::find(by.begin(), by.end(), field) != by.end();
}

/// The row of an element, without its group.
QuantityRow rowOf(const CountedElement& element, const std::vector<QuantityField>& by) {
    QuantityRow row;
    if (has(by, QuantityField::kind))
        row.kind = element.kind;
    if (has(by, QuantityField::what))
        row.code = element.code;
    if (has(by, QuantityField::block))
        row.block = element.block;
    if (has(by, QuantityField::size))
        row.size = element.size;
    if (has(by, QuantityField::use))
        row.use = element.use;
    return row;
}

class QuantityCount {
public:
    QuantityCount(const AcDbDatabase& drawing, const QuantityQuery& query)
        : query_(query), rows_(query.by), totals_(kTotalFields) {
        isByGroup_ = has(query.by, QuantityField::group);
        if (isByGroup_)
            groups_ = groupNames(drawing, query.filter.group);
    }

    void add(const CountedElement& element, const std::optional<LineLength>& length) {
        if (element.code == kNoElement && !query_.includesOthers)
            return;
        if (element.isLine() && !length)
            result_.linesWithoutLength.push_back(element.id);
        Sums::add(result_.sum, length);
        totals_.add(rowOf(element, kTotalFields), length);
        QuantityRow row = rowOf(element, query_.by);
        const auto groups = groups_.find(element.id);
        if (groups == groups_.end())
            return rows_.add(row, length);
        for (const std::wstring& group : groups->second) {
            row.group = group;
            rows_.add(row, length);
        }
    }

    Quantities result() {
        result_.rows = rows_.rows();
        for (const QuantityRow& row : totals_.rows())
            result_.totals.push_back({row.kind, row.code, row.quantity});
        return std::move(result_);
    }

private:
    inline static const std::vector<QuantityField> kTotalFields{QuantityField::kind, QuantityField::what};

    const QuantityQuery& query_;
    bool isByGroup_ = false;
    std::unordered_map<AcDbObjectId, std::vector<std::wstring>> groups_;
    Sums rows_;
    Sums totals_;
    Quantities result_;
};

} // namespace

Quantities countQuantities(const AcDbDatabase& drawing, const QuantityQuery& query) {
    std::vector<AcDbObjectId> ids;
    std::vector<CountedElement> elements;
    zu::ElementBlocks blocks;
    for (const AcDbObjectId id : modelSpaceReferences(drawing)) {
        auto element = zu::readCounted(id, blocks, query.attributes);
        if (!element)
            continue;
        ids.push_back(id);
        elements.push_back(std::move(*element));
    }
    const std::vector<std::optional<LineLength>> lengths = zu::lineLengths(elements);
    const std::vector<AcDbObjectId> counted = filterElements(ids, query.filter);
    QuantityCount count(drawing, query);
    auto next = counted.begin(); // The counted elements are in the order of all.
    for (std::size_t i = 0; i < ids.size() && next != counted.end(); ++i) {
        if (ids[i] != *next)
            continue;
        count.add(elements[i], lengths[i]);
        ++next;
    }
    return count.result();
}

} // namespace zucomn
