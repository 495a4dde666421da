#include "dbsymtb.h"

#include "drawing/tag_view.h"

#include <cstdlib>
#include <utility>

using zuhost::TagList;

ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord)
ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord)

namespace {

constexpr std::int64_t kFrozen = 1;
constexpr std::int64_t kLocked = 4;
constexpr int kWhite = 7;

} // namespace

TagList AcDbLayerTableRecord::newRecords() const {
    TagList records = namedRecord("LAYER", "AcDbLayerTableRecord");
    records.add(62, std::to_string(kWhite));
    records.add(6, "Continuous");
    return records;
}

bool AcDbLayerTableRecord::flag(std::int64_t bit) const {
    return (integerTag({}, 70, 0) & bit) != 0;
}

Acad::ErrorStatus AcDbLayerTableRecord::setFlag(std::int64_t bit, bool on) {
    const std::int64_t flags = integerTag({}, 70, 0);
    return setIntegerTag({}, 70, on ? flags | bit : flags & ~bit);
}

bool AcDbLayerTableRecord::isLocked() const {
    return flag(kLocked);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked) {
    return setFlag(kLocked, locked);
}
bool AcDbLayerTableRecord::isFrozen() const {
    return flag(kFrozen);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    return setFlag(kFrozen, frozen);
}
bool AcDbLayerTableRecord::isOff() const {
    return integerTag({}, 62, kWhite) < 0;
}

Adesk::UInt16 AcDbLayerTableRecord::colorIndex() const {
    return static_cast<Adesk::UInt16>(std::abs(integerTag({}, 62, kWhite)));
}

Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::UInt16 index) {
    constexpr Adesk::UInt16 kLast = 255;
    if (index == 0 || index > kLast)
        return Acad::eInvalidInput;
    return setIntegerTag({}, 62, isOff() ? -std::int64_t{index} : std::int64_t{index});
}

std::wstring AcDbLayerTableRecord::linetypeName() const {
    return textTag({}, 6);
}

AcDb::LineWeight AcDbLayerTableRecord::lineWeight() const {
    return static_cast<AcDb::LineWeight>(integerTag({}, 370, AcDb::kLnWtByLwDefault));
}

TagList AcDbLinetypeTableRecord::newRecords() const {
    TagList records = namedRecord("LTYPE", "AcDbLinetypeTableRecord");
    for (const auto& [code, value] : {std::pair(3, ""), {72, "65"}, {73, "0"}, {40, "0.0"}})
        records.add(code, value);
    return records;
}

std::wstring AcDbLinetypeTableRecord::description() const {
    return textTag({}, 3);
}
double AcDbLinetypeTableRecord::patternLength() const {
    return realTag({}, 40, 0.0);
}

std::vector<double> AcDbLinetypeTableRecord::dashes() const {
    std::vector<double> lengths;
    for (const zuhost::TagRef& tag : section({}))
        if (tag.code == 49)
            lengths.push_back(tag.real().value_or(0.0));
    return lengths;
}

TagList AcDbTextStyleTableRecord::newRecords() const {
    TagList records = namedRecord("STYLE", "AcDbTextStyleTableRecord");
    for (const auto& [code, value] :
         {std::pair(40, "0.0"), {41, "1.0"}, {50, "0.0"}, {71, "0"}, {42, "2.5"}, {3, "txt"}, {4, ""}})
        records.add(code, value);
    return records;
}

std::wstring AcDbTextStyleTableRecord::fileName() const {
    return textTag({}, 3);
}
std::wstring AcDbTextStyleTableRecord::bigFontFileName() const {
    return textTag({}, 4);
}
double AcDbTextStyleTableRecord::textSize() const {
    return realTag({}, 40, 0.0);
}

TagList AcDbRegAppTableRecord::newRecords() const {
    return namedRecord("APPID", "AcDbRegAppTableRecord");
}
