#include "dbents.h"

#include "angles.h"
#include "drawing/tag_view.h"
#include "new_text.h"
#include "plane_change.h"

#include <cmath>

ACRX_CONS_DEFINE_MEMBERS(AcDbMText, AcDbEntity)

using zuhost::Tag;
using zuhost::TagList;

namespace {

constexpr std::string_view kMarker = "AcDbMText";
/// Drawings hold longer texts in parts.
constexpr std::size_t kPartBytes = 250;

bool isPartOfText(int code) {
    return code == 1 || code == 3;
}

} // namespace

zuhost::TagList AcDbMText::newRecords() const {
    zuhost::TagList records = recordsOf("MTEXT", {"AcDbEntity", kMarker});
    // 72 is the drawing direction: that of the style.
    records.add(10, "0.0");
    records.add(20, "0.0");
    records.add(30, "0.0");
    records.add(40, "2.5");
    records.add(41, "0.0");
    records.add(71, "1");
    records.add(72, "5");
    records.add(1, "");
    return records;
}

ACHAR* AcDbMText::contents() const {
    AcString text;
    contents(text);
    return zuhost::newText(text.kwszPtr());
}

Acad::ErrorStatus AcDbMText::contents(AcString& text) const {
    std::string pieces;
    for (const zuhost::TagRef& tag : section(kMarker))
        if (isPartOfText(tag.code))
            pieces += tag.text;
    text = decoded(pieces).c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text) {
    if (text == nullptr)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    // Parts end between characters.
    std::vector<std::string> parts(1);
    const std::wstring_view whole(text);
    for (std::size_t i = 0; i < whole.size();) {
        const bool isPair = sizeof(wchar_t) == 2 && i + 1 < whole.size() && (whole[i] & 0xFC00) == 0xD800;
        const std::string character = encoded(whole.substr(i, isPair ? 2 : 1));
        if (parts.back().size() + character.size() > kPartBytes)
            parts.emplace_back();
        parts.back() += character;
        i += isPair ? 2 : 1;
    }
    TagList& records = changingTags();
    records.eraseIf(section(kMarker).range(), [](const Tag& tag) { return isPartOfText(tag.code); });
    std::vector<Tag> tags;
    tags.reserve(parts.size());
    for (std::string& part : parts)
        tags.push_back({&part == &parts.back() ? 1 : 3, std::move(part)});
    records.insert(section(kMarker).range().last, tags);
    return Acad::eOk;
}

AcGePoint3d AcDbMText::location() const {
    return pointTag(kMarker, 10);
}
Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& location) {
    return setPointTag(kMarker, 10, location);
}
double AcDbMText::textHeight() const {
    return realTag(kMarker, 40, 0.0);
}
Acad::ErrorStatus AcDbMText::setTextHeight(double height) {
    return height > 0.0 ? setRealTag(kMarker, 40, height) : Acad::eInvalidInput;
}
double AcDbMText::width() const {
    return realTag(kMarker, 41, 0.0);
}
Acad::ErrorStatus AcDbMText::setWidth(double width) {
    return width >= 0.0 ? setRealTag(kMarker, 41, width) : Acad::eInvalidInput;
}
AcDbMText::AttachmentPoint AcDbMText::attachment() const {
    return static_cast<AttachmentPoint>(integerTag(kMarker, 71, kTopLeft));
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint point) {
    if (point < kTopLeft || point > kBottomRight)
        return Acad::eInvalidInput;
    return setIntegerTag(kMarker, 71, point);
}

double AcDbMText::rotation() const {
    const AcGePoint3d direction = pointTag(kMarker, 11);
    if (direction.x == 0.0 && direction.y == 0.0 && direction.z == 0.0)
        return zuhost::toRadians(realTag(kMarker, 50, 0.0));
    const AcGeVector3d inPlane = AcGeMatrix3d::worldToPlane(normal()) * direction.asVector();
    return std::atan2(inPlane.y, inPlane.x);
}

Acad::ErrorStatus AcDbMText::setRotation(double angle) {
    return setDirection(AcGeMatrix3d::planeToWorld(normal()) *
                        AcGeVector3d(std::cos(angle), std::sin(angle), 0.0));
}

AcGeVector3d AcDbMText::direction() const {
    const double angle = rotation();
    return AcGeMatrix3d::planeToWorld(normal()) * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction) {
    if (direction.isZeroLength())
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setPointTag(kMarker, 11, AcGePoint3d::kOrigin + direction.normal());
    // The direction replaces the angle.
    if (status == Acad::eOk)
        removeTags(kMarker, {50});
    return status;
}

AcGeVector3d AcDbMText::normal() const {
    return normalTag(kMarker);
}
Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal) {
    return setNormalTag(kMarker, normal);
}
double AcDbMText::lineSpacingFactor() const {
    return realTag(kMarker, 44, 1.0);
}

Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor) {
    const bool isValid = factor >= 0.25 && factor <= 4.0;
    return isValid ? setRealTag(kMarker, 44, factor) : Acad::eInvalidInput;
}

AcDbObjectId AcDbMText::textStyle() const {
    return styleTag(kMarker);
}
Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style) {
    return setStyleTag(kMarker, style);
}

Acad::ErrorStatus AcDbMText::subTransformBy(const AcGeMatrix3d& matrix) {
    const auto change = zuhost::planeChange(matrix, normal());
    if (!change)
        return Acad::eCannotScaleNonUniformly;
    const AcGeVector3d along = matrix * direction();
    if (change->normal != normal())
        setNormal(change->normal);
    setLocation(matrix * location());
    setDirection(along);
    setTextHeight(textHeight() * change->scale);
    return setWidth(width() * change->scale);
}
