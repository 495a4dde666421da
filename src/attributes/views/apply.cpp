#include "apply.h"

#include "attribute_pane.h"
#include "attributes/attribute_tables.h"
#include "frame/module_state.h"

#include <zucomn/tables.h>

namespace zu {

EditCounts applyToEntities(const AttributePane& pane, std::span<const AcDbObjectId> elements,
                           LockReport locks) {
    const ResourceScope scope;
    CPtrArray records;
    const bool hasParameters = AttributeTables::readParameters(records);
    const ParameterIndex parameters(records);
    ZuComn_RemoveAllFree(records);
    if (!hasParameters && !pane.usesMarks())
        return {};
    return writeBack(elements, pane.changedItems(), parameters, locks);
}

} // namespace zu
