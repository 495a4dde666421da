#include "object_factory.h"

#include "dbdict.h"
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
    TypeClass{"GROUP", &AcDbGroup::desc},
    TypeClass{"DICTIONARY", &AcDbDictionary::desc},
    TypeClass{"XRECORD", &AcDbXrecord::desc},
    TypeClass{"LAYER", &AcDbLayerTableRecord::desc},
    TypeClass{"LTYPE", &AcDbLinetypeTableRecord::desc},
    TypeClass{"STYLE", &AcDbTextStyleTableRecord::desc},
    TypeClass{"APPID", &AcDbRegAppTableRecord::desc},
    TypeClass{"BLOCK_RECORD", &AcDbBlockTableRecord::desc},
    // Before R13 the BLOCK is the block's record; in later versions it is opened through its record only.
    TypeClass{"BLOCK", &AcDbBlockTableRecord::desc},
    TypeClass{"ACDBDICTIONARYWDFLT", &AcDbDictionary::desc},
};

constexpr std::array kTables{
    TypeClass{"BLOCK_RECORD", &AcDbBlockTable::desc}, TypeClass{"LAYER", &AcDbLayerTable::desc},
    TypeClass{"LTYPE", &AcDbLinetypeTable::desc},     TypeClass{"STYLE", &AcDbTextStyleTable::desc},
    TypeClass{"APPID", &AcDbRegAppTable::desc},
};

/// Entity types, for drawings before R13, which have no class markers.
constexpr std::array<std::string_view, 10> kOldEntities{
    "POLYLINE", "VERTEX", "SEQEND", "ATTRIB", "ATTDEF", "SOLID", "TRACE", "3DFACE", "SHAPE", "DIMENSION"};

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

AcRxClass* tableClass(const TagView& tags) {
    AcRxClass* const known = lookUp(kTables, tags.text(2).value_or(""));
    return known != nullptr ? known : AcDbSymbolTable::desc();
}

} // namespace

AcRxClass* ObjectBuilder::classOf(const std::string& type, const TagView& tags) {
    if (type == "TABLE")
        return tableClass(tags);
    if (AcRxClass* const known = lookUp(kTypes, type))
        return known;
    return isEntity(type, tags) ? AcDbEntity::desc() : AcDbObject::desc();
}

std::unique_ptr<AcDbObject> ObjectBuilder::build(const std::string& type, const TagView& tags) {
    return std::unique_ptr<AcDbObject>(static_cast<AcDbObject*>(classOf(type, tags)->create()));
}

} // namespace zuhost
