#include "dbsymtb.h"

#include "color_records.h"
#include "database_core.h"
#include "drawing/tag_view.h"
#include "line_weights.h"
#include "new_text.h"
#include "record_name.h"

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <utility>

using zuhost::TagList;

ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord)
ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord)
ACRX_CONS_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord)

namespace {

constexpr std::int64_t kFrozen = 1;
constexpr std::int64_t kLocked = 4;
constexpr int kWhite = 7;
constexpr int kDash = 49;
constexpr int kDashType = 74;
constexpr double kDegree = std::numbers::pi / 180.0;

/// Returns whether the drawing, if any, holds line weights of layers and whether they are plotted.
bool canHoldWeights(const zuhost::DatabaseCore* core) {
    return core == nullptr || core->document->version() >= zuhost::kLineWeightVersion;
}

} // namespace

TagList AcDbLayerTableRecord::newRecords() const {
    TagList records = namedRecord("LAYER", "AcDbLayerTableRecord");
    records.add(62, std::to_string(kWhite));
    records.add(6, "Continuous");
    return records;
}

bool AcDbLayerTableRecord::isLocked() const {
    return hasFlag(kLocked);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked) {
    const Acad::ErrorStatus status = setFlag(kLocked, locked);
    if (status == Acad::eOk && core() != nullptr)
        core()->invalidateLocks();
    return status;
}
bool AcDbLayerTableRecord::isFrozen() const {
    return hasFlag(kFrozen);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    return setFlag(kFrozen, frozen);
}
bool AcDbLayerTableRecord::isOff() const {
    return integerTag({}, 62, kWhite) < 0;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool off) {
    const std::int64_t color = colorIndex();
    return setIntegerTag({}, 62, off ? -color : color);
}

bool AcDbLayerTableRecord::isPlottable() const {
    return integerTag({}, 290, 1) != 0;
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable) {
    if (!canHoldWeights(core()))
        return Acad::eNotApplicable;
    return setIntegerTag({}, 290, plottable ? 1 : 0);
}

Adesk::UInt16 AcDbLayerTableRecord::colorIndex() const {
    return static_cast<Adesk::UInt16>(std::abs(integerTag({}, 62, kWhite)));
}

Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::UInt16 index) {
    AcCmColor color;
    const Acad::ErrorStatus status = color.setColorIndex(index);
    return status == Acad::eOk ? setColor(color) : status;
}

AcCmColor AcDbLayerTableRecord::color() const {
    return zuhost::colorOf(colorIndex(), integerTag({}, zuhost::kTrueColor, -1));
}

Acad::ErrorStatus AcDbLayerTableRecord::setColor(const AcCmColor& color) {
    if (color.isByLayer() || color.isByBlock())
        return Acad::eInvalidInput;
    if (color.isByColor() && core() != nullptr && core()->document->version() < zuhost::kTrueColorVersion)
        return Acad::eNotApplicable;
    const std::int64_t index = color.colorIndex();
    const Acad::ErrorStatus status = setIntegerTag({}, zuhost::kColor, isOff() ? -index : index);
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    records.eraseIf(section({}).range(), [](const zuhost::Tag& tag) {
        return tag.code == zuhost::kTrueColor || tag.code == zuhost::kColorName;
    });
    return color.isByColor() ? setIntegerTag({}, zuhost::kTrueColor, zuhost::partsOf(color)) : Acad::eOk;
}

AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const {
    AcDbStub* const table = core() != nullptr ? core()->tableHead("LTYPE") : nullptr;
    return table != nullptr ? AcDbObjectId(core()->findRecord(*table, textTag({}, 6), false))
                            : AcDbObjectId();
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId linetype) {
    std::wstring name;
    const Acad::ErrorStatus status = zuhost::readRecordName<AcDbLinetypeTableRecord>(linetype, name);
    return status == Acad::eOk ? setTextTag({}, 6, name) : status;
}

AcDb::LineWeight AcDbLayerTableRecord::lineWeight() const {
    return static_cast<AcDb::LineWeight>(integerTag({}, 370, AcDb::kLnWtByLwDefault));
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight) {
    if (!zuhost::isLineWeight(weight) || weight == AcDb::kLnWtByLayer || weight == AcDb::kLnWtByBlock)
        return Acad::eInvalidInput;
    if (!canHoldWeights(core()))
        return Acad::eNotApplicable;
    return setIntegerTag({}, 370, weight);
}

TagList AcDbLinetypeTableRecord::newRecords() const {
    TagList records = namedRecord("LTYPE", "AcDbLinetypeTableRecord");
    for (const auto& [code, value] : {std::pair(3, ""), {72, "65"}, {73, "0"}, {40, "0.0"}})
        records.add(code, value);
    return records;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(ACHAR*& text) const {
    text = zuhost::newText(textTag({}, 3));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::comments(const ACHAR*& text) const {
    text = kept(textTag({}, 3));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text) {
    return setTextTag({}, 3, text != nullptr ? text : L"");
}

double AcDbLinetypeTableRecord::patternLength() const {
    return realTag({}, 40, 0.0);
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double length) {
    return setRealTag({}, 40, length);
}

std::vector<std::size_t> AcDbLinetypeTableRecord::dashPlaces() const {
    std::vector<std::size_t> places;
    const zuhost::TagView records = section({});
    for (auto tag = records.begin(); tag != records.end(); ++tag)
        if (tag->code == kDash)
            places.push_back(tag.place());
    return places;
}

int AcDbLinetypeTableRecord::numDashes() const {
    return static_cast<int>(dashPlaces().size());
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count) {
    if (count < 0)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setIntegerTag({}, 73, count);
    if (status != Acad::eOk)
        return status;
    const std::vector<std::size_t> places = dashPlaces();
    const auto wanted = static_cast<std::size_t>(count);
    zuhost::TagList& records = changingTags();
    // A dash extends to the next one: the codes after its length describe what is drawn on it.
    if (wanted < places.size())
        records.erase({places[wanted], records.extendedDataStart()});
    for (std::size_t i = places.size(); i < wanted; ++i)
        records.insert(records.extendedDataStart(),
                       std::vector<zuhost::Tag>{{kDash, "0.0"}, {kDashType, "0"}});
    return Acad::eOk;
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
    const std::vector<std::size_t> places = dashPlaces();
    if (index < 0 || static_cast<std::size_t>(index) >= places.size())
        return 0.0;
    return tags().at(places[static_cast<std::size_t>(index)])->real().value_or(0.0);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length) {
    if (index < 0 || index >= numDashes())
        return Acad::eInvalidIndex;
    if (!std::isfinite(length))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const std::size_t at = dashPlaces()[static_cast<std::size_t>(index)];
    changingTags().setReal(kDash, length, {at, at + 1});
    return Acad::eOk;
}

TagList AcDbTextStyleTableRecord::newRecords() const {
    TagList records = namedRecord("STYLE", "AcDbTextStyleTableRecord");
    for (const auto& [code, value] :
         {std::pair(40, "0.0"), {41, "1.0"}, {50, "0.0"}, {71, "0"}, {42, "2.5"}, {3, "txt"}, {4, ""}})
        records.add(code, value);
    return records;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(ACHAR*& name) const {
    name = zuhost::newText(textTag({}, 3));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR*& name) const {
    name = kept(textTag({}, 3));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name) {
    return name != nullptr ? setTextTag({}, 3, name) : Acad::eInvalidInput;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(ACHAR*& name) const {
    name = zuhost::newText(textTag({}, 4));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(const ACHAR*& name) const {
    name = kept(textTag({}, 4));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* name) {
    return setTextTag({}, 4, name != nullptr ? name : L"");
}
double AcDbTextStyleTableRecord::textSize() const {
    return realTag({}, 40, 0.0);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
    return setRealTag({}, 40, size);
}
double AcDbTextStyleTableRecord::xScale() const {
    return realTag({}, 41, 1.0);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double factor) {
    return setRealTag({}, 41, factor);
}
double AcDbTextStyleTableRecord::obliquingAngle() const {
    return realTag({}, 50, 0.0) * kDegree;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle) {
    return setRealTag({}, 50, angle / kDegree);
}

TagList AcDbRegAppTableRecord::newRecords() const {
    return namedRecord("APPID", "AcDbRegAppTableRecord");
}

TagList AcDbDimStyleTableRecord::newRecords() const {
    return namedRecord("DIMSTYLE", "AcDbDimStyleTableRecord");
}
