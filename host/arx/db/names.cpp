#include "zuhost/names.h"

#include "object_access.h"

#include "drawing/tag_view.h"

namespace zuhost {

std::wstring layerName(const AcDbEntity& entity) {
    return ObjectAccess::layer(entity);
}
std::wstring blockName(const AcDbBlockReference& reference) {
    return ObjectAccess::block(reference);
}
std::wstring recordName(const AcDbSymbolTableRecord& record) {
    return ObjectAccess::name(record);
}
std::wstring groupName(const AcDbGroup& group) {
    return ObjectAccess::name(group);
}
std::wstring typeName(const AcDbObject& object) {
    return ObjectAccess::decoded(object, ObjectAccess::tags(object).text(0).value_or(""));
}

} // namespace zuhost
