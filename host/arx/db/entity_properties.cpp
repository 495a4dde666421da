#include "dbmain.h"

#include "color_records.h"
#include "database_core.h"
#include "database_variables.h"
#include "dbapserv.h"
#include "dbsymtb.h"
#include "drawing/tag_view.h"
#include "entity_change.h"
#include "line_weights.h"
#include "record_name.h"

#include <algorithm>
#include <array>

using zuhost::kColor;
using zuhost::kColorName;
using zuhost::kTrueColor;
using zuhost::Tag;
using zuhost::TagList;

namespace {

constexpr std::string_view kMarker = "AcDbEntity";
constexpr int kByLayer = 256;
constexpr int kLayer = 8;
constexpr int kLinetype = 6;
constexpr int kLinetypeScale = 48;
constexpr int kLineWeight = 370;
constexpr int kVisibility = 60;

/// The versions of drawings that introduced a property.
struct Introduced {
    int code;
    int version;
};
constexpr std::array kIntroduced{Introduced{kLinetypeScale, 1012}, Introduced{kVisibility, 1012},
                                 Introduced{kLineWeight, zuhost::kLineWeightVersion},
                                 Introduced{kTrueColor, zuhost::kTrueColorVersion}};

int introducedIn(int code) {
    const auto* const found =
        std::find_if(kIntroduced.begin(), kIntroduced.end(),
                     [code](const Introduced& property) { return property.code == code; });
    return found != kIntroduced.end() ? found->version : 0;
}

} // namespace

AcCmColor AcDbEntity::color() const {
    return zuhost::colorOf(colorIndex(), integerTag(kMarker, kTrueColor, -1));
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, bool doSubents, AcDbDatabase* database) {
    if (color.isByColor() && !canHold(kTrueColor))
        return Acad::eNotApplicable;
    const Acad::ErrorStatus status = setIntegerTag(kMarker, kColor, color.colorIndex());
    if (status != Acad::eOk)
        return status;
    removeTags(kMarker, {kTrueColor, kColorName});
    if (color.isByColor())
        setIntegerTag(kMarker, kTrueColor, zuhost::partsOf(color));
    if (doSubents)
        forEachPart([&](AcDbEntity& part) { part.setColor(color, true, database); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 index) {
    if (index > kByLayer)
        return Acad::eInvalidInput;
    AcCmColor color;
    color.setColorIndex(index);
    return setColor(color, false);
}

AcDbObjectId AcDbEntity::linetypeId() const {
    AcDbStub* const table = core() != nullptr ? core()->tableHead("LTYPE") : nullptr;
    if (table == nullptr)
        return {};
    const std::wstring stored = textTag(kMarker, kLinetype);
    return {core()->findRecord(*table, stored.empty() ? L"ByLayer" : stored, false)};
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, bool doSubents) {
    if (name == nullptr)
        return Acad::eInvalidInput;
    if (core() != nullptr) {
        AcDbStub* const table = core()->tableHead("LTYPE");
        if (!zuhost::isBuiltInLinetype(name) &&
            (table == nullptr || core()->findRecord(*table, name, false) == nullptr))
            return Acad::eKeyNotFound;
    }
    const Acad::ErrorStatus status = setTextTag(kMarker, kLinetype, name);
    if (status == Acad::eOk && doSubents)
        forEachPart([&](AcDbEntity& part) { part.setLinetype(name); });
    return status;
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId linetype, bool doSubents) {
    std::wstring name;
    const Acad::ErrorStatus status = zuhost::readRecordName<AcDbLinetypeTableRecord>(linetype, name);
    return status == Acad::eOk ? setLinetype(name.c_str(), doSubents) : status;
}

double AcDbEntity::linetypeScale() const {
    return realTag(kMarker, kLinetypeScale, 1.0);
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool doSubents) {
    if (!(scale > 0.0))
        return Acad::eInvalidInput;
    if (!canHold(kLinetypeScale))
        return Acad::eNotApplicable;
    const Acad::ErrorStatus status = setRealTag(kMarker, kLinetypeScale, scale);
    if (status == Acad::eOk && doSubents)
        forEachPart([&](AcDbEntity& part) { part.setLinetypeScale(scale); });
    return status;
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool doSubents) {
    if (!zuhost::isLineWeight(weight))
        return Acad::eInvalidInput;
    if (!canHold(kLineWeight))
        return Acad::eNotApplicable;
    const Acad::ErrorStatus status = setIntegerTag(kMarker, kLineWeight, weight);
    if (status == Acad::eOk && doSubents)
        forEachPart([&](AcDbEntity& part) { part.setLineWeight(weight); });
    return status;
}

AcDb::Visibility AcDbEntity::visibility() const {
    return isVisible() ? AcDb::kVisible : AcDb::kInvisible;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, bool doSubents) {
    if (!canHold(kVisibility))
        return Acad::eNotApplicable;
    const Acad::ErrorStatus status = setIntegerTag(kMarker, kVisibility, visibility);
    if (status == Acad::eOk && doSubents)
        forEachPart([&](AcDbEntity& part) { part.setVisibility(visibility); });
    return status;
}

void AcDbEntity::setDatabaseDefaults() {
    setDatabaseDefaults(database());
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database) {
    if (database == nullptr)
        database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr || !zuhost::coreOf(*database).document)
        return;
    const zuhost::DatabaseCore& current = zuhost::coreOf(*database);
    const std::wstring layer = zuhost::textVariable(current, "$CLAYER", kLayer);
    const std::wstring linetype = zuhost::textVariable(current, "$CELTYPE", kLinetype);
    setLayer(layer.empty() ? L"0" : layer.c_str());
    setLinetype(linetype.empty() ? L"ByLayer" : linetype.c_str());
    AcCmColor color;
    color.setColorIndex(
        static_cast<Adesk::UInt16>(zuhost::integerVariable(current, "$CECOLOR", kColor, kByLayer)));
    setColor(color);
    setLinetypeScale(database->celtscale());
    setLineWeight(database->celweight());
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* other, bool doSubents) {
    if (other == nullptr)
        return Acad::eNullObjectPointer;
    if (database() != nullptr && other->database() != nullptr && database() != other->database())
        return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = setLayer(other->layerText().c_str());
    if (status != Acad::eOk)
        return status;
    const std::wstring linetype = other->textTag(kMarker, kLinetype);
    setLinetype(linetype.empty() ? L"ByLayer" : linetype.c_str(), doSubents);
    setColor(other->color(), doSubents);
    setLinetypeScale(other->linetypeScale(), doSubents);
    setLineWeight(other->lineWeight(), doSubents);
    setVisibility(other->visibility(), doSubents);
    return Acad::eOk;
}

bool AcDbEntity::canBeIn(const zuhost::Document& document) const {
    const std::string_view type = tags().text(0).value_or("");
    if (type == "LWPOLYLINE")
        return document.version() >= 1014;
    return document.version() >= 1012 || (type != "MTEXT" && type != "ELLIPSE");
}

bool AcDbEntity::canHold(int code) const {
    return core() == nullptr || core()->document->version() >= introducedIn(code);
}

void AcDbEntity::removeTags(std::string_view marker, std::initializer_list<int> codes) {
    const auto isOne = [&](const Tag& tag) {
        return std::find(codes.begin(), codes.end(), tag.code) != codes.end();
    };
    TagList& records = changingTags();
    records.eraseIf(section(marker).range(), isOne);
}

void AcDbEntity::fitToDrawing() {
    if (!section(kMarker).text(kLayer)) {
        std::wstring name = L"0";
        zuhost::readRecordName<AcDbLayerTableRecord>(database()->clayer(), name);
        setTextTag(kMarker, kLayer, name);
    } else if (layerId().isNull()) {
        zuhost::addLayer(*database(), layerText().c_str());
    }
    const std::wstring linetype = textTag(kMarker, kLinetype);
    if (!linetype.empty() && !zuhost::isBuiltInLinetype(linetype.c_str()) && linetypeId().isNull())
        removeTags(kMarker, {kLinetype});
    for (const Introduced& property : kIntroduced)
        if (!canHold(property.code))
            removeTags(kMarker, {property.code});
}
