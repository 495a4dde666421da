#include "object_factory.h"

#include "dbdict.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zuhost {

namespace {

struct TypeClass {
    std::string_view type;
    AcRxClass* (*desc)();
};

constexpr std::array kTypes{
    TypeClass{"INSERT", &AcDbBlockReference::desc},
    TypeClass{"POINT", &AcDbPoint::desc},
    TypeClass{"LINE", &AcDbLine::desc},
    TypeClass{"CIRCLE", &AcDbCircle::desc},
    TypeClass{"ARC", &AcDbArc::desc},
    TypeClass{"LWPOLYLINE", &AcDbPolyline::desc},
    TypeClass{"TEXT", &AcDbText::desc},
    TypeClass{"MTEXT", &AcDbMText::desc},
    TypeClass{"ELLIPSE", &AcDbEllipse::desc},
    TypeClass{"ATTRIB", &AcDbAttribute::desc},
    TypeClass{"ATTDEF", &AcDbAttributeDefinition::desc},
    TypeClass{"SEQEND", &AcDbSequenceEnd::desc},
    TypeClass{"GROUP", &AcDbGroup::desc},
    TypeClass{"DICTIONARY", &AcDbDictionary::desc},
    TypeClass{"XRECORD", &AcDbXrecord::desc},
    TypeClass{"LAYER", &AcDbLayerTableRecord::desc},
    TypeClass{"LTYPE", &AcDbLinetypeTableRecord::desc},
    TypeClass{"STYLE", &AcDbTextStyleTableRecord::desc},
    TypeClass{"APPID", &AcDbRegAppTableRecord::desc},
    TypeClass{"DIMSTYLE", &AcDbDimStyleTableRecord::desc},
    TypeClass{"BLOCK_RECORD", &AcDbBlockTableRecord::desc},
    // Before R13 the BLOCK is the block's record; in later versions it is opened through its record only.
    TypeClass{"BLOCK", &AcDbBlockTableRecord::desc},
    TypeClass{"ACDBDICTIONARYWDFLT", &AcDbDictionary::desc},
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
AcRxClass* lookUp(const Table& table, std::string_view type) {
    const auto found =
        std::find_if(table.begin(), table.end(), [type](const TypeClass& t) { return t.type == type; });
    return found == table.end() ? nullptr : found->desc();
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
    AcRxClass* const known = lookUp(kTables, tags.text(2).value_or(""));
    return known != nullptr ? known : AcDbSymbolTable::desc();
}

} // namespace

AcRxClass* ObjectBuilder::classOfType(const std::string& type) {
    return lookUp(kTypes, type);
}

AcRxClass* ObjectBuilder::classOf(const std::string& type, const TagView& tags) {
    if (AcRxClass* const known = classOfType(type))
        return known;
    if (type == "TABLE")
        return tableClass(tags);
    if (AcRxClass* const polyline = curveClass(type, tags))
        return polyline;
    return isEntity(type, tags) ? AcDbEntity::desc() : AcDbObject::desc();
}

std::unique_ptr<AcDbObject> ObjectBuilder::create(const AcRxClass& objectClass) {
    return std::unique_ptr<AcDbObject>(static_cast<AcDbObject*>(objectClass.create()));
}

std::unique_ptr<AcDbObject> ObjectBuilder::build(const std::string& type, const TagView& tags) {
    return create(*classOf(type, tags));
}

} // namespace zuhost
