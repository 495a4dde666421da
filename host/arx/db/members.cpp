#include "zuhost/members.h"

#include "object_access.h"

namespace zuhost {

std::vector<AcDbObjectId> entityIds(const AcDbBlockTableRecord& block, bool skipErased) {
    return ObjectAccess::entities(block, skipErased);
}
std::vector<AcDbObjectId> recordIds(const AcDbSymbolTable& table) {
    return ObjectAccess::records(table);
}

std::vector<DictionaryEntry> entriesOf(const AcDbDictionary& dictionary) {
    return ObjectAccess::entries(dictionary);
}
std::vector<std::wstring> danglingNames(const AcDbDictionary& dictionary) {
    return ObjectAccess::danglingNames(dictionary);
}

bool isMember(const AcDbGroup& group, AcDbObjectId id) {
    return ObjectAccess::has(group, id);
}
std::vector<AcDbHandle> surplusEntries(const AcDbGroup& group) {
    return ObjectAccess::surplusEntries(group);
}
Acad::ErrorStatus removeSurplusEntries(AcDbGroup& group) {
    return ObjectAccess::removeSurplusEntries(group);
}

} // namespace zuhost
