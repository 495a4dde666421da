#include "object_factory.h"

#include "dbdict.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "object_memory.h"

#include <algorithm>
#include <array>
#include <new>

namespace zuhost {

namespace {

struct TypeClass {
    std::string_view type;
    AcRxClass* (*desc)();
};

template <typename T>
constexpr ObjectKind kindOfObjects(std::string_view type) {
    static_assert(alignof(T) <= ObjectMemory::kAlignment);
    return {type, &T::desc, sizeof(T), [](void* memory) -> AcDbObject* { return ::new (memory) T; }};
}

constexpr std::array kKinds{
    kindOfObjects<AcDbBlockReference>("INSERT"),
    kindOfObjects<AcDbPoint>("POINT"),
    kindOfObjects<AcDbLine>("LINE"),
    kindOfObjects<AcDbCircle>("CIRCLE"),
    kindOfObjects<AcDbArc>("ARC"),
    kindOfObjects<AcDbPolyline>("LWPOLYLINE"),
    kindOfObjects<AcDbText>("TEXT"),
    kindOfObjects<AcDbMText>("MTEXT"),
    kindOfObjects<AcDbEllipse>("ELLIPSE"),
    kindOfObjects<AcDbAttribute>("ATTRIB"),
    kindOfObjects<AcDbAttributeDefinition>("ATTDEF"),
    kindOfObjects<AcDbSequenceEnd>("SEQEND"),
    kindOfObjects<AcDbGroup>("GROUP"),
    kindOfObjects<AcDbDictionary>("DICTIONARY"),
    kindOfObjects<AcDbXrecord>("XRECORD"),
    kindOfObjects<AcDbLayerTableRecord>("LAYER"),
    kindOfObjects<AcDbLinetypeTableRecord>("LTYPE"),
    kindOfObjects<AcDbTextStyleTableRecord>("STYLE"),
    kindOfObjects<AcDbRegAppTableRecord>("APPID"),
    kindOfObjects<AcDbDimStyleTableRecord>("DIMSTYLE"),
    kindOfObjects<AcDbBlockTableRecord>("BLOCK_RECORD"),
    // Before R13 the BLOCK is the block's record; in later versions it is opened through its record only.
    kindOfObjects<AcDbBlockTableRecord>("BLOCK"),
    kindOfObjects<AcDbDictionary>("ACDBDICTIONARYWDFLT"),
};

constexpr std::array kTables{
    TypeClass{"BLOCK_RECORD", &AcDbBlockTable::desc}, TypeClass{"LAYER", &AcDbLayerTable::desc},
    TypeClass{"LTYPE", &AcDbLinetypeTable::desc},     TypeClass{"STYLE", &AcDbTextStyleTable::desc},
    TypeClass{"APPID", &AcDbRegAppTable::desc},       TypeClass{"DIMSTYLE", &AcDbDimStyleTable::desc},
};

/// Entity types, for drawings before R13, which have no class markers.
constexpr std::array<std::string_view, 7> kOldEntities{"POLYLINE", "VERTEX", "SOLID",    "TRACE",
                                                       "3DFACE",   "SHAPE",  "DIMENSION"};

template <typename Table>
const typename Table::value_type* lookUp(const Table& table, std::string_view type) {
    const auto found = std::ranges::find(table, type, &Table::value_type::type);
    return found == table.end() ? nullptr : &*found;
}

bool isEntity(std::string_view type, const TagView& tags) {
    return !tags.subclass("AcDbEntity").empty() || tags.find(8) ||
           std::find(kOldEntities.begin(), kOldEntities.end(), type) != kOldEntities.end();
}

/// Returns the class of a POLYLINE or VERTEX, which its flags (70) tell; null for those of meshes.
AcRxClass* polylineClass(const TagView& tags, AcRxClass* (*flat)(), std::int64_t spaceFlag,
                         AcRxClass* (*inSpace)()) {
    constexpr std::int64_t kMesh = 16 | 64;
    constexpr std::int64_t kMeshVertex = 64 | 128;
    const std::int64_t flags = tags.integer(70).value_or(0);
    const bool isVertex = inSpace == &AcDb3dPolylineVertex::desc;
    if ((flags & (isVertex ? kMeshVertex : kMesh)) != 0)
        return nullptr;
    return (flags & spaceFlag) != 0 ? inSpace() : flat();
}

AcRxClass* curveClass(std::string_view type, const TagView& tags) {
    if (type == "POLYLINE")
        return polylineClass(tags, &AcDb2dPolyline::desc, 8, &AcDb3dPolyline::desc);
    if (type == "VERTEX")
        return polylineClass(tags, &AcDb2dVertex::desc, 32, &AcDb3dPolylineVertex::desc);
    return nullptr;
}

AcRxClass* tableClass(const TagView& tags) {
    const TypeClass* const known = lookUp(kTables, tags.text(2).value_or(""));
    return known != nullptr ? known->desc() : AcDbSymbolTable::desc();
}

} // namespace

const ObjectKind* ObjectBuilder::kindOf(std::string_view type) {
    return lookUp(kKinds, type);
}

AcRxClass* ObjectBuilder::classOf(const std::string& type, const TagView& tags) {
    if (const ObjectKind* const known = kindOf(type))
        return known->desc();
    if (type == "TABLE")
        return tableClass(tags);
    if (AcRxClass* const polyline = curveClass(type, tags))
        return polyline;
    return isEntity(type, tags) ? AcDbEntity::desc() : AcDbObject::desc();
}

std::unique_ptr<AcDbObject> ObjectBuilder::build(const std::string& type, const TagView& tags) {
    return std::unique_ptr<AcDbObject>(static_cast<AcDbObject*>(classOf(type, tags)->create()));
}

} // namespace zuhost
