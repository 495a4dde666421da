#include "dbents.h"

#include "angles.h"
#include "drawing/tag_view.h"
#include "new_text.h"
#include "plane_change.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbText, AcDbEntity)

namespace {

constexpr std::string_view kMarker = "AcDbText";
constexpr std::int64_t kMirroredInX = 2;
constexpr std::int64_t kMirroredInY = 4;

} // namespace

zuhost::TagList AcDbText::newRecords() const {
    // The second section of the name holds the vertical alignment.
    return recordsOf("TEXT", {"AcDbEntity", kMarker, kMarker});
}

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height,
                   double rotation)
    : AcDbText() {
    setPosition(position);
    setHeight(height);
    setTextString(text);
    if (rotation != 0.0)
        setRotation(rotation);
    if (!style.isNull())
        setTextStyle(style);
}

ACHAR* AcDbText::textString() const {
    return zuhost::newText(textTag(kMarker, 1));
}
const ACHAR* AcDbText::textStringConst() const {
    return kept(text_, textTag(kMarker, 1));
}
Acad::ErrorStatus AcDbText::textString(AcString& text) const {
    text = textTag(kMarker, 1).c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    return text != nullptr ? setTextTag(kMarker, 1, text) : Acad::eInvalidInput;
}
AcGePoint3d AcDbText::position() const {
    return planePointTag(kMarker, 10);
}
Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& position) {
    return setPlanePointTag(kMarker, 10, position);
}

AcGePoint3d AcDbText::alignmentPoint() const {
    return inWorld(pointTag(kMarker, 11, pointTag(kMarker, 10)), normal());
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point) {
    return setPlanePointTag(kMarker, 11, point);
}
bool AcDbText::isDefaultAlignment() const {
    return horizontalMode() == AcDb::kTextLeft && verticalMode() == AcDb::kTextBase;
}
Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase* /*database*/) {
    return isDefaultAlignment() ? Acad::eOk : Acad::eNotImplementedYet;
}
double AcDbText::height() const {
    return realTag(kMarker, 40, 0.0);
}
Acad::ErrorStatus AcDbText::setHeight(double height) {
    return height >= 0.0 ? setRealTag(kMarker, 40, height) : Acad::eInvalidInput;
}
double AcDbText::rotation() const {
    return zuhost::toRadians(realTag(kMarker, 50, 0.0));
}
Acad::ErrorStatus AcDbText::setRotation(double angle) {
    return setRealTag(kMarker, 50, zuhost::toDegrees(angle));
}
double AcDbText::oblique() const {
    return zuhost::toRadians(realTag(kMarker, 51, 0.0));
}
Acad::ErrorStatus AcDbText::setOblique(double angle) {
    return setRealTag(kMarker, 51, zuhost::toDegrees(angle));
}
double AcDbText::widthFactor() const {
    return realTag(kMarker, 41, 1.0);
}
Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
    return factor > 0.0 ? setRealTag(kMarker, 41, factor) : Acad::eInvalidInput;
}
AcDb::TextHorzMode AcDbText::horizontalMode() const {
    return static_cast<AcDb::TextHorzMode>(integerTag(kMarker, 72, 0));
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
    if (mode < AcDb::kTextLeft || mode > AcDb::kTextFit)
        return Acad::eInvalidInput;
    return setIntegerTag(kMarker, 72, mode);
}

AcDb::TextVertMode AcDbText::verticalMode() const {
    return static_cast<AcDb::TextVertMode>(integerTag({}, verticalCode(), 0));
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
    if (mode < AcDb::kTextBase || mode > AcDb::kTextTop)
        return Acad::eInvalidInput;
    // The section of the code is the last one.
    return setIntegerTag({}, verticalCode(), mode);
}

bool AcDbText::isMirrored(std::int64_t bit) const {
    return (integerTag(kMarker, 71, 0) & bit) != 0;
}

Acad::ErrorStatus AcDbText::setMirrored(std::int64_t bit, bool mirrored) {
    const std::int64_t flags = integerTag(kMarker, 71, 0);
    return setIntegerTag(kMarker, 71, mirrored ? flags | bit : flags & ~bit);
}

bool AcDbText::isMirroredInX() const {
    return isMirrored(kMirroredInX);
}
Acad::ErrorStatus AcDbText::mirrorInX(bool mirrored) {
    return setMirrored(kMirroredInX, mirrored);
}
bool AcDbText::isMirroredInY() const {
    return isMirrored(kMirroredInY);
}
Acad::ErrorStatus AcDbText::mirrorInY(bool mirrored) {
    return setMirrored(kMirroredInY, mirrored);
}
AcDbObjectId AcDbText::textStyle() const {
    return styleTag(kMarker);
}
Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
    return setStyleTag(kMarker, style);
}
AcGeVector3d AcDbText::normal() const {
    return normalTag(kMarker);
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal) {
    const AcGePoint3d start = position();
    const AcGePoint3d alignment = alignmentPoint();
    const Acad::ErrorStatus status = setNormalTag(kMarker, normal);
    if (status != Acad::eOk)
        return status;
    if (!isDefaultAlignment())
        setAlignmentPoint(alignment);
    return setPosition(start);
}

double AcDbText::thickness() const {
    return realTag(kMarker, 39, 0.0);
}
Acad::ErrorStatus AcDbText::setThickness(double thickness) {
    return setRealTag(kMarker, 39, thickness);
}

Acad::ErrorStatus AcDbText::subTransformBy(const AcGeMatrix3d& matrix) {
    const auto change = zuhost::planeChange(matrix, normal());
    if (!change)
        return Acad::eCannotScaleNonUniformly;
    const AcGePoint3d start = matrix * position();
    const AcGePoint3d alignment = matrix * alignmentPoint();
    if (thickness() != 0.0)
        setThickness(thickness() * (matrix * normal()).length());
    if (change->normal != normal())
        setNormalTag(kMarker, change->normal);
    setPosition(start);
    if (!isDefaultAlignment())
        setAlignmentPoint(alignment);
    setHeight(height() * change->scale);
    if (change->isMirrored)
        mirrorInY(!isMirroredInY());
    // The letters of a mirrored text run the same way, upside down.
    return setRotation(change->angle(rotation()));
}
