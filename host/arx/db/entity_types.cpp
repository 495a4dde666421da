#include "entity_types.h"

#include <algorithm>

namespace zuhost {

namespace {

constexpr std::array kTypes{
    EntityType{"LINE", "AcDbLine", {}, {}, {10, 11, -1, -1}},
    EntityType{"POINT", "AcDbPoint", {}, {}, {10, -1, -1, -1}},
    EntityType{"CIRCLE", "AcDbCircle", {}, {}, {10, 40, -1, -1}},
    EntityType{"ARC", "AcDbCircle", "AcDbArc", {50, 51}, {10, 40, 50, 51}},
    EntityType{"ELLIPSE", "AcDbEllipse", {}, {}, {10, 11, 40, -1}},
    EntityType{"TEXT", "AcDbText", "AcDbText", {73}, {1, 10, 40, -1}},
    EntityType{"MTEXT", "AcDbMText", {}, {}, {1, 10, -1, -1}},
    EntityType{"INSERT", "AcDbBlockReference", {}, {}, {2, 10, -1, -1}},
    EntityType{"ATTRIB", "AcDbText", "AcDbAttribute", {2, 70, 73, 74}, {1, 2, 10, 40}},
    EntityType{"ATTDEF", "AcDbText", "AcDbAttributeDefinition", {2, 3, 70, 74}, {1, 2, 10, 40}},
    EntityType{"LWPOLYLINE", "AcDbPolyline", {}, {}, {10, -1, -1, -1}},
    EntityType{"POLYLINE", "AcDb2dPolyline", {}, {}, {-1, -1, -1, -1}},
    EntityType{"VERTEX", "AcDbVertex", "AcDb2dVertex", {10, 40, 41, 42, 50, 70, 91}, {10, -1, -1, -1}},
    EntityType{"SEQEND", {}, {}, {}, {-1, -1, -1, -1}},
    EntityType{"SOLID", "AcDbTrace", {}, {}, {10, 11, 12, -1}},
    EntityType{"TRACE", "AcDbTrace", {}, {}, {10, 11, 12, -1}},
    EntityType{"3DFACE", "AcDbFace", {}, {}, {10, 11, 12, -1}},
};

/// The codes that all entities have.
constexpr std::array kCommonCodes{6, 8, 48, 60, 62, 67, 284, 347, 348, 370, 380, 390, 410, 420, 430, 440};

} // namespace

const EntityType* entityType(std::string_view name) {
    const auto* const found = std::find_if(kTypes.begin(), kTypes.end(),
                                           [name](const EntityType& type) { return type.name == name; });
    return found != kTypes.end() ? found : nullptr;
}

bool isCommonCode(int code) {
    return std::find(kCommonCodes.begin(), kCommonCodes.end(), code) != kCommonCodes.end();
}

bool isOfSecondClass(const EntityType& type, int code) {
    return std::find(type.secondCodes.begin(), type.secondCodes.end(), code) != type.secondCodes.end();
}

} // namespace zuhost
