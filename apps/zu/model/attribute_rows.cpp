#include "model/attribute_rows.h"

#include "text.h"

#include <zucomn/model/attributes.h>

#include <algorithm>
#include <set>

namespace zu::app {

AttributeRows readAttributeRows(AcDbObjectId id) {
    AttributeRows rows;
    for (const zucomn::AttributeRow& row : zucomn::readAttributes(id))
        std::transform(row.begin(), row.end(), rows.emplace_back().begin(),
                       [](const std::wstring& text) { return narrow(text); });
    return rows;
}

std::vector<std::pair<std::string, std::string>> attributeIds(std::vector<AcDbObjectId> elements) {
    constexpr std::size_t kMost = 1000;
    elements.resize(std::min(elements.size(), kMost));
    std::set<std::string> known;
    std::vector<std::pair<std::string, std::string>> ids;
    for (const AcDbObjectId element : elements)
        for (const auto& row : readAttributeRows(element))
            if (known.insert(row[3]).second)
                ids.emplace_back(row[3], row[2].empty() ? row[6] : row[2]);
    return ids;
}

} // namespace zu::app
