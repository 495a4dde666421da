#include "attributes/partslist/parts_rows.h"

#include "attributes/model/field_rules.h"

#include <zucomn/attributes.h>

#include <set>

namespace zu {

namespace {

constexpr int kLabelField = 4;

} // namespace

PartsRows::PartsRows(const CStringArray& lines) : parts_(partsOf(lines)) {
    for (int part = 0; part < partCount(); ++part) {
        rows_.push_back({part});
        const LineRange& range = parts_[static_cast<std::size_t>(part)];
        for (int line = range.first; line < range.first + range.count; ++line)
            rows_.push_back({part, line});
    }
}

std::vector<int> PartsRows::linesOf(std::span<const int> rows) const {
    std::set<int> lines;
    for (const int index : rows) {
        if (index < 0 || static_cast<std::size_t>(index) >= rows_.size())
            continue;
        const PartsRow& row = rows_[static_cast<std::size_t>(index)];
        if (!row.isPart()) {
            lines.insert(row.line);
            continue;
        }
        const LineRange& range = parts_[static_cast<std::size_t>(row.part)];
        for (int line = range.first; line < range.first + range.count; ++line)
            lines.insert(lines.end(), line);
    }
    return {lines.begin(), lines.end()};
}

std::vector<ShownItem> PartsRows::shownItemsOf(const CStringArray& lines, std::span<const int> chosen) const {
    std::vector<CStringArray> records;
    auto part = parts_.begin();
    const LineRange* current = nullptr;
    for (const int line : chosen) {
        while (part != parts_.end() && line >= part->first + part->count)
            ++part;
        if (part == parts_.end())
            break;
        if (current != &*part) {
            current = &*part;
            records.emplace_back().Add(CString()); // In the place of a record's header.
        }
        records.back().Add(lines[line]);
    }
    std::vector<const CStringArray*> lists;
    lists.reserve(records.size());
    for (const CStringArray& record : records)
        lists.push_back(&record);
    return shownItems(lists);
}

CString lineName(const CString& line) {
    const CString id = attributeField(line, 1);
    if (CString name = CAttributeData::GetItemName(id); !name.IsEmpty())
        return name;
    const CString label = attributeField(line, kLabelField);
    return label.IsEmpty() ? id : label;
}

} // namespace zu
