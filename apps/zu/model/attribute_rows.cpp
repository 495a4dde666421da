#include "model/attribute_rows.h"

#include "text.h"

#include <zucomn/model/attributes.h>

#include <algorithm>

namespace zu::app {

AttributeRows readAttributeRows(AcDbObjectId id) {
    AttributeRows rows;
    for (const zucomn::AttributeRow& row : zucomn::readAttributes(id))
        std::transform(row.begin(), row.end(), rows.emplace_back().begin(),
                       [](const std::wstring& text) { return narrow(text); });
    return rows;
}

} // namespace zu::app
