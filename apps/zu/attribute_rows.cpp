#include "attribute_rows.h"

#include "text.h"

#include <zucomn/attributes.h>

namespace zu::app {

AttributeRows readAttributeRows(AcDbObjectId id) {
    CAttributeData data;
    data.ReadData(id);
    AttributeRows rows;
    const CPtrArray& tables = data.GetEntityList();
    for (int t = 0; t < tables.GetSize(); ++t) {
        const auto* const table = static_cast<const CPtrArray*>(tables[t]);
        for (int r = 0; r < table->GetSize(); ++r) {
            const auto* const row = static_cast<const CStringArray*>(table->GetAt(r));
            auto& columns = rows.emplace_back();
            for (int c = 0; c < 9; ++c)
                columns[static_cast<std::size_t>(c)] = narrow(row->GetAt(c).view());
        }
    }
    return rows;
}

} // namespace zu::app
