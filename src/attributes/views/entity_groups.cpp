#include "entity_list.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <array>
#include <map>

namespace zu {

namespace {

/// Returns the block name of a block reference, or the class name of any other entity.
CString kindOf(const AcDbEntity& entity) {
    const AcDbBlockReference* const reference = AcDbBlockReference::cast(&entity);
    if (reference == nullptr)
        return entity.isA()->name();
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference->blockTableRecord());
    const ACHAR* name = L"";
    if (block.openStatus() == Acad::eOk)
        block->getName(name);
    return name;
}

CString handleOf(AcDbObjectId id) {
    std::array<ACHAR, 17> text{};
    id.handle().getIntoAsciiBuffer(text.data());
    return text.data();
}

CEntityGroup::Row rowOf(const AcDbEntity& entity, AcDbObjectId id) {
    CEntityGroup::Row row{std::make_shared<CStringArray>(), id};
    row.columns->Add(handleOf(id));
    row.columns->Add(entity.layerName().c_str());
    return row;
}

} // namespace

std::vector<CEntityGroup> groupsOf(const AcArray<AcDbObjectId>& entities) {
    std::vector<CEntityGroup> groups;
    std::map<CString, std::size_t> indexes;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() != Acad::eOk)
            continue;
        const CString kind = kindOf(*entity);
        const auto [index, isNew] = indexes.emplace(kind, groups.size());
        if (isNew)
            groups.push_back({kind, {}});
        groups[index->second].rows.push_back(rowOf(*entity, id));
    }
    for (CEntityGroup& group : groups)
        group.title += L" (" + CString(std::to_wstring(group.rows.size()).c_str()) + L")";
    return groups;
}

} // namespace zu
