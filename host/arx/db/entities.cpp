#include "dbents.h"

#include "drawing/tag_view.h"

#include <algorithm>
#include <numbers>

using zuhost::TagList;
using zuhost::TagRange;
using zuhost::TagView;

ACRX_CONS_DEFINE_MEMBERS(AcDbPoint, AcDbEntity)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)
ACRX_CONS_DEFINE_MEMBERS(AcDbLine, AcDbCurve)
ACRX_CONS_DEFINE_MEMBERS(AcDbCircle, AcDbCurve)
ACRX_CONS_DEFINE_MEMBERS(AcDbArc, AcDbCurve)
ACRX_CONS_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve)
ACRX_CONS_DEFINE_MEMBERS(AcDbText, AcDbEntity)
ACRX_CONS_DEFINE_MEMBERS(AcDbMText, AcDbEntity)

namespace {

constexpr std::string_view kPoint = "AcDbPoint";
constexpr std::string_view kLine = "AcDbLine";
constexpr std::string_view kCircle = "AcDbCircle";
constexpr std::string_view kArc = "AcDbArc";
constexpr std::string_view kPolyline = "AcDbPolyline";
constexpr std::string_view kText = "AcDbText";
constexpr std::string_view kMText = "AcDbMText";
constexpr std::string_view kEntity = "AcDbEntity";

constexpr double toRadians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}
constexpr double toDegrees(double radians) {
    return radians * 180.0 / std::numbers::pi;
}

} // namespace

TagList AcDbPoint::newRecords() const {
    return recordsOf("POINT", {kEntity, kPoint});
}

AcDbPoint::AcDbPoint(const AcGePoint3d& position) : AcDbPoint() {
    setPosition(position);
}

AcGePoint3d AcDbPoint::position() const {
    return pointTag(kPoint, 10);
}

Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& position) {
    return setPointTag(kPoint, 10, position);
}

TagList AcDbLine::newRecords() const {
    return recordsOf("LINE", {kEntity, kLine});
}

AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : AcDbLine() {
    setStartPoint(start);
    setEndPoint(end);
}

AcGePoint3d AcDbLine::startPoint() const {
    return pointTag(kLine, 10);
}
AcGePoint3d AcDbLine::endPoint() const {
    return pointTag(kLine, 11);
}
Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point) {
    return setPointTag(kLine, 10, point);
}
Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point) {
    return setPointTag(kLine, 11, point);
}

TagList AcDbCircle::newRecords() const {
    return recordsOf("CIRCLE", {kEntity, kCircle});
}

AcDbCircle::AcDbCircle(const AcGePoint3d& centre, double radius) : AcDbCircle() {
    setPointTag(kCircle, 10, centre);
    setRadius(radius);
}

AcGePoint3d AcDbCircle::center() const {
    return planePointTag(kCircle, 10);
}
double AcDbCircle::radius() const {
    return realTag(kCircle, 40, 0.0);
}
AcGeVector3d AcDbCircle::normal() const {
    return normalTag(kCircle);
}
Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
    return setRealTag(kCircle, 40, radius);
}

TagList AcDbArc::newRecords() const {
    return recordsOf("ARC", {kEntity, kCircle, kArc});
}

AcDbArc::AcDbArc(const AcGePoint3d& centre, double radius, double startAngle, double endAngle) : AcDbArc() {
    setPointTag(kCircle, 10, centre);
    setRealTag(kCircle, 40, radius);
    setRealTag(kArc, 50, toDegrees(startAngle));
    setRealTag(kArc, 51, toDegrees(endAngle));
}

AcGePoint3d AcDbArc::center() const {
    return planePointTag(kCircle, 10);
}
double AcDbArc::radius() const {
    return realTag(kCircle, 40, 0.0);
}
double AcDbArc::startAngle() const {
    return toRadians(realTag(kArc, 50, 0.0));
}
double AcDbArc::endAngle() const {
    return toRadians(realTag(kArc, 51, 0.0));
}
AcGeVector3d AcDbArc::normal() const {
    return normalTag(kCircle);
}

TagList AcDbPolyline::newRecords() const {
    TagList records = recordsOf("LWPOLYLINE", {kEntity, kPolyline});
    records.add(90, "0");
    records.add(70, "0");
    return records;
}

unsigned int AcDbPolyline::numVerts() const {
    return static_cast<unsigned int>(vertices().size() - 1);
}

const std::vector<std::size_t>& AcDbPolyline::vertices() const {
    if (verticesVersion_ == tagVersion() && !vertices_.empty())
        return vertices_;
    vertices_.clear();
    const TagView part = section(kPolyline);
    TagView::Iterator it = part.begin();
    for (; it != part.end(); ++it)
        if (it->code == 10)
            vertices_.push_back(it.place());
    vertices_.push_back(it.place());
    verticesVersion_ = tagVersion();
    return vertices_;
}

bool AcDbPolyline::isClosed() const {
    return (integerTag(kPolyline, 70, 0) & 1) != 0;
}

Acad::ErrorStatus AcDbPolyline::setClosed(bool closed) {
    const std::int64_t flags = integerTag(kPolyline, 70, 0);
    return setIntegerTag(kPolyline, 70, closed ? flags | 1 : flags & ~std::int64_t{1});
}

TagRange AcDbPolyline::vertexRange(unsigned int index) const {
    const std::vector<std::size_t>& places = vertices();
    if (index + std::size_t{1} >= places.size())
        return {places.back(), places.back()};
    return {places[index], places[index + std::size_t{1}]};
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const {
    const TagRange vertex = vertexRange(index);
    if (vertex.empty())
        return Acad::eInvalidIndex;
    const TagView records = tags().in(vertex);
    point = {records.real(10).value_or(0.0), records.real(20).value_or(0.0)};
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
    const TagRange vertex = vertexRange(index);
    if (vertex.empty())
        return Acad::eInvalidIndex;
    bulge = tags().in(vertex).real(42).value_or(0.0);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge) {
    const unsigned int count = numVerts();
    if (index > count)
        return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList vertex;
    vertex.setReal(10, point.x, vertex.all());
    vertex.setReal(20, point.y, vertex.all());
    if (bulge != 0.0)
        vertex.setReal(42, bulge, vertex.all());
    const TagRange at = vertexRange(index);
    changingTags().insert(at.first, std::vector<zuhost::Tag>(vertex.begin(), vertex.end()));
    return setIntegerTag(kPolyline, 90, count + 1);
}

AcGeVector3d AcDbPolyline::normal() const {
    return normalTag(kPolyline);
}
double AcDbPolyline::elevation() const {
    return realTag(kPolyline, 38, 0.0);
}

TagList AcDbText::newRecords() const {
    return recordsOf("TEXT", {kEntity, kText});
}

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, double height) : AcDbText() {
    setPointTag(kText, 10, position);
    setRealTag(kText, 40, height);
    setTextString(text);
    changingTags().add(100, std::string(kText)); // a second section, for the vertical alignment
}

std::wstring AcDbText::textString() const {
    return textTag(kText, 1);
}
Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    return setTextTag(kText, 1, text);
}
AcGePoint3d AcDbText::position() const {
    return planePointTag(kText, 10);
}
AcGePoint3d AcDbText::alignmentPoint() const {
    return inWorld(pointTag(kText, 11, pointTag(kText, 10)), normal());
}
double AcDbText::height() const {
    return realTag(kText, 40, 0.0);
}
double AcDbText::rotation() const {
    return toRadians(realTag(kText, 50, 0.0));
}
double AcDbText::widthFactor() const {
    return realTag(kText, 41, 1.0);
}
int AcDbText::horizontalMode() const {
    return static_cast<int>(integerTag(kText, 72, 0));
}

int AcDbText::verticalMode() const {
    // It is in the second section of the same name, which section() does not return.
    return static_cast<int>(section({}).integer(73).value_or(0));
}

AcGeVector3d AcDbText::normal() const {
    return normalTag(kText);
}

TagList AcDbMText::newRecords() const {
    return recordsOf("MTEXT", {kEntity, kMText});
}

std::wstring AcDbMText::contents() const {
    std::string pieces;
    for (const zuhost::TagRef& tag : section(kMText))
        if (tag.code == 3 || tag.code == 1)
            pieces += tag.text;
    return decoded(pieces);
}

AcGePoint3d AcDbMText::location() const {
    return pointTag(kMText, 10);
}
double AcDbMText::textHeight() const {
    return realTag(kMText, 40, 0.0);
}
int AcDbMText::attachment() const {
    return static_cast<int>(integerTag(kMText, 71, 1));
}

double AcDbMText::rotation() const {
    const AcGePoint3d direction = pointTag(kMText, 11);
    if (direction.x != 0.0 || direction.y != 0.0)
        return std::atan2(direction.y, direction.x);
    return toRadians(realTag(kMText, 50, 0.0));
}
