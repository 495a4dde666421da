#include "attributes/attribute_record.h"
#include "attributes/model/layer_locks.h"
#include "entity_list.h"
#include "entity_names.h"

#include <arxutil.h>
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

/// Returns the mark and the part name that the entity's attribute record holds, else the handle.
CString nameOf(AcDbObjectId id) {
    constexpr std::size_t kPartName = 1;
    constexpr std::size_t kMark = 2;
    CStringArray record;
    if (ApiComn_extractAttributesArrayID(id, kAttributeApplication, record) != 0 || record.IsEmpty())
        return handleOf(id);
    const std::vector<CString> header = splitFields(record[0]);
    const auto field = [&](std::size_t n) {
        return n < header.size() ? CString(header[n]).Trim() : CString();
    };
    const CString name = (field(kMark) + L" " + field(kPartName)).Trim();
    return name.IsEmpty() ? handleOf(id) : name;
}

CEntityGroup::Row rowOf(const AcDbEntity& entity, AcDbObjectId id, LayerLocks& locks) {
    CEntityGroup::Row row{std::make_shared<CStringArray>(), id, !locks.lockedLayer(id).IsEmpty()};
    row.columns->Add(nameOf(id));
    row.columns->Add(zu::layerName(entity).c_str());
    row.columns->Add(handleOf(id));
    return row;
}

} // namespace

std::vector<CEntityGroup> groupsOf(const AcArray<AcDbObjectId>& entities) {
    std::vector<CEntityGroup> groups;
    std::map<CString, std::size_t> indexes;
    LayerLocks locks;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() != Acad::eOk)
            continue;
        const CString kind = kindOf(*entity);
        const auto [index, isNew] = indexes.emplace(kind, groups.size());
        if (isNew)
            groups.push_back({kind, {}});
        groups[index->second].rows.push_back(rowOf(*entity, id, locks));
    }
    for (CEntityGroup& group : groups)
        group.title += L" (" + CString(std::to_wstring(group.rows.size()).c_str()) + L")";
    return groups;
}

} // namespace zu
