#include "acutads.h"
#include "dbelipse.h"
#include "sample_drawing.h"

#include <zuhost/undo.h>

#include <cmath>
#include <functional>
#include <limits>
#include <map>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

bool isSame(double a, double b) {
    return std::abs(a - b) < 1e-9;
}
bool isSame(const AcGePoint3d& a, const AcGePoint3d& b) {
    return a.distanceTo(b) < 1e-9;
}
bool isSame(const AcGeVector3d& a, const AcGeVector3d& b) {
    return (a - b).length() < 1e-9;
}
template <typename Value>
bool isSame(const Value& a, const Value& b) {
    return a == b;
}

/// Values that a drawing can't hold.
std::vector<double> notFinite(double /*like*/) {
    return {kNan, kInfinite, -kInfinite};
}
std::vector<AcGePoint3d> notFinite(const AcGePoint3d& like) {
    return {{kNan, like.y, like.z}, {like.x, kInfinite, like.z}, {like.x, like.y, -kInfinite}};
}
std::vector<AcGeVector3d> notFinite(const AcGeVector3d& like) {
    return {{kNan, like.y, like.z}, {like.x, kInfinite, like.z}, {0, 0, 0}};
}
template <typename Value>
std::vector<Value> notFinite(const Value& /*like*/) {
    return {};
}

/// One property of a class: a value that is set, and values that are refused.
struct Property {
    std::string name;
    std::function<AcDbEntity*()> make;
    std::function<Acad::ErrorStatus(AcDbEntity&)> set;
    std::vector<std::function<Acad::ErrorStatus(AcDbEntity&)>> refused;
    std::function<bool(const AcDbEntity&)> holds;
};

template <typename Entity, typename Base, typename Argument, typename Result>
Property property(std::string name, std::function<Entity*()> make, Acad::ErrorStatus (Base::*set)(Argument),
                  Result (Base::*get)() const, std::decay_t<Argument> value,
                  std::vector<std::decay_t<Argument>> invalid = {}) {
    using Value = std::decay_t<Argument>;
    const auto setTo = [set](const Value& to) {
        return [set, to](AcDbEntity& entity) { return (static_cast<Entity&>(entity).*set)(to); };
    };
    Property made{std::move(name), make, setTo(value), {}, [get, value](const AcDbEntity& entity) {
                      return isSame(static_cast<Value>((static_cast<const Entity&>(entity).*get)()), value);
                  }};
    for (const auto& bad : notFinite(value))
        made.refused.push_back(setTo(bad));
    for (const auto& bad : invalid)
        made.refused.push_back(setTo(bad));
    return made;
}

const AcGeVector3d kTilted(0.36, -0.48, 0.8);
const AcGePoint3d kPlace(7.25, -3.5, 1e-7);

template <typename Entity>
void addPlane(std::vector<Property>& all, const char* name, const std::function<Entity*()>& make) {
    const std::string start(name);
    all.push_back(property<Entity>(start + " normal", make, &Entity::setNormal, &Entity::normal, kTilted));
    all.push_back(
        property<Entity>(start + " thickness", make, &Entity::setThickness, &Entity::thickness, -2.5));
}

template <typename Entity>
void addTextProperties(std::vector<Property>& all, const char* name, const std::function<Entity*()>& make) {
    const std::string start(name);
    const auto add = [&](const char* what, auto set, auto get, auto value, decltype(value) invalid) {
        all.push_back(property<Entity>(start + what, make, set, get, value, {invalid}));
    };
    addPlane<Entity>(all, name, make);
    all.push_back(
        property<Entity>(start + " position", make, &AcDbText::setPosition, &AcDbText::position, kPlace));
    all.push_back(property<Entity>(start + " alignment", make, &AcDbText::setAlignmentPoint,
                                   &AcDbText::alignmentPoint, kPlace));
    all.push_back(
        property<Entity>(start + " rotation", make, &AcDbText::setRotation, &AcDbText::rotation, 1.25));
    all.push_back(
        property<Entity>(start + " oblique", make, &AcDbText::setOblique, &AcDbText::oblique, -0.25));
    add(" height", &AcDbText::setHeight, &AcDbText::height, 12.5, -1.0);
    add(" width", &AcDbText::setWidthFactor, &AcDbText::widthFactor, 0.75, 0.0);
    add(" horizontal", &AcDbText::setHorizontalMode, &AcDbText::horizontalMode, AcDb::kTextFit,
        static_cast<AcDb::TextHorzMode>(6));
    add(" vertical", &AcDbText::setVerticalMode, &AcDbText::verticalMode, AcDb::kTextTop,
        static_cast<AcDb::TextVertMode>(-1));
    all.push_back(property<Entity>(start + " mirrored in x", make, &AcDbText::mirrorInX,
                                   &AcDbText::isMirroredInX, true));
    all.push_back(property<Entity>(start + " mirrored in y", make, &AcDbText::mirrorInY,
                                   &AcDbText::isMirroredInY, true));
}

void addCurves(std::vector<Property>& all) {
    const std::function<AcDbLine*()> line = [] { return new AcDbLine({1, 2, 3}, {4, 5, 6}); };
    addPlane<AcDbLine>(all, "line", line);
    all.push_back(
        property<AcDbLine>("line start", line, &AcDbLine::setStartPoint, &AcDbLine::startPoint, kPlace));
    all.push_back(property<AcDbLine>("line end", line, &AcDbLine::setEndPoint, &AcDbLine::endPoint, kPlace));

    const std::function<AcDbPoint*()> point = [] { return new AcDbPoint({1, 2, 3}); };
    addPlane<AcDbPoint>(all, "point", point);
    all.push_back(
        property<AcDbPoint>("point position", point, &AcDbPoint::setPosition, &AcDbPoint::position, kPlace));
    all.push_back(property<AcDbPoint>("point rotation", point, &AcDbPoint::setEcsRotation,
                                      &AcDbPoint::ecsRotation, 0.5));

    // In a tilted plane, of which the records hold coordinates.
    const std::function<AcDbCircle*()> circle = [] { return new AcDbCircle({1, 2, 3}, {1, 1, -3}, 5.0); };
    addPlane<AcDbCircle>(all, "circle", circle);
    all.push_back(
        property<AcDbCircle>("circle centre", circle, &AcDbCircle::setCenter, &AcDbCircle::center, kPlace));
    all.push_back(property<AcDbCircle>("circle radius", circle, &AcDbCircle::setRadius, &AcDbCircle::radius,
                                       0.125, {-1.0}));

    const std::function<AcDbArc*()> arc = [] { return new AcDbArc({1, 2, 3}, {1, 1, -3}, 5.0, 1.0, 2.0); };
    addPlane<AcDbArc>(all, "arc", arc);
    all.push_back(property<AcDbArc>("arc centre", arc, &AcDbArc::setCenter, &AcDbArc::center, kPlace));
    all.push_back(property<AcDbArc>("arc radius", arc, &AcDbArc::setRadius, &AcDbArc::radius, 0.125, {-1.0}));
    all.push_back(property<AcDbArc>("arc start", arc, &AcDbArc::setStartAngle, &AcDbArc::startAngle, 1.5));
    all.push_back(property<AcDbArc>("arc end", arc, &AcDbArc::setEndAngle, &AcDbArc::endAngle, 6.0));

    const std::function<AcDbEllipse*()> ellipse = [] {
        return new AcDbEllipse({1, 2, 3}, AcGeVector3d::kZAxis, {3, 4, 0}, 0.5, 0.5, 2.0);
    };
    all.push_back(property<AcDbEllipse>("ellipse centre", ellipse, &AcDbEllipse::setCenter,
                                        &AcDbEllipse::center, kPlace));
    all.push_back(property<AcDbEllipse>("ellipse ratio", ellipse, &AcDbEllipse::setRadiusRatio,
                                        &AcDbEllipse::radiusRatio, 0.25, {0.0, 1.5}));
    all.push_back(property<AcDbEllipse>("ellipse start", ellipse, &AcDbEllipse::setStartAngle,
                                        &AcDbEllipse::startAngle, 1.5));
    all.push_back(property<AcDbEllipse>("ellipse end", ellipse, &AcDbEllipse::setEndAngle,
                                        &AcDbEllipse::endAngle, 4.0));
    all.push_back(property<AcDbEllipse>("ellipse first parameter", ellipse, &AcDbEllipse::setStartParam,
                                        &AcDbEllipse::startParam, 1.5));
    all.push_back(property<AcDbEllipse>("ellipse last parameter", ellipse, &AcDbEllipse::setEndParam,
                                        &AcDbEllipse::endParam, 4.0));
}

void addPolylines(std::vector<Property>& all) {
    const std::function<AcDbPolyline*()> polyline = [] {
        auto* const made = new AcDbPolyline;
        made->addVertexAt(0, {0, 0}, 0.5, 0.1, 0.2);
        made->addVertexAt(1, {4, 1});
        made->addVertexAt(2, {4, 7}, -1.0);
        return made;
    };
    addPlane<AcDbPolyline>(all, "polyline", polyline);
    all.push_back(property<AcDbPolyline>("polyline closed", polyline, &AcDbPolyline::setClosed,
                                         &AcDbPolyline::isClosed, true));
    all.push_back(property<AcDbPolyline>("polyline elevation", polyline, &AcDbPolyline::setElevation,
                                         &AcDbPolyline::elevation, 8.5));

    const std::function<AcDb2dPolyline*()> old = [] {
        AcGePoint3dArray points;
        points.append({0, 0, 0});
        points.append({4, 1, 0});
        return new AcDb2dPolyline(AcDb::k2dSimplePoly, points);
    };
    addPlane<AcDb2dPolyline>(all, "2d polyline", old);
    all.push_back(property<AcDb2dPolyline>("2d polyline closed", old, &AcDb2dPolyline::setClosed,
                                           &AcDb2dPolyline::isClosed, true));
    all.push_back(property<AcDb2dPolyline>("2d polyline elevation", old, &AcDb2dPolyline::setElevation,
                                           &AcDb2dPolyline::elevation, 8.5));
    all.push_back(property<AcDb2dPolyline>("2d polyline start width", old,
                                           &AcDb2dPolyline::setDefaultStartWidth,
                                           &AcDb2dPolyline::defaultStartWidth, 0.5));
    all.push_back(property<AcDb2dPolyline>("2d polyline end width", old, &AcDb2dPolyline::setDefaultEndWidth,
                                           &AcDb2dPolyline::defaultEndWidth, 0.5));
    const std::function<AcDb3dPolyline*()> inSpace = [] {
        AcGePoint3dArray points;
        points.append({0, 0, 0});
        points.append({4, 1, 9});
        return new AcDb3dPolyline(AcDb::k3dSimplePoly, points);
    };
    all.push_back(property<AcDb3dPolyline>("3d polyline closed", inSpace, &AcDb3dPolyline::setClosed,
                                           &AcDb3dPolyline::isClosed, true));
}

void addTexts(std::vector<Property>& all) {
    addTextProperties<AcDbText>(all, "text", [] {
        auto* const text = new AcDbText({1, 2, 3}, L"P-1", AcDbObjectId::kNull, 2.5);
        text->setHorizontalMode(AcDb::kTextCenter);
        return text;
    });
    addTextProperties<AcDbAttributeDefinition>(all, "definition", [] {
        return new AcDbAttributeDefinition({1, 2, 3}, L"none", L"TAG", L"Tag?");
    });
    const std::function<AcDbMText*()> lines = [] {
        auto* const made = new AcDbMText;
        made->setContents(L"a\\Pb");
        return made;
    };
    all.push_back(
        property<AcDbMText>("mtext location", lines, &AcDbMText::setLocation, &AcDbMText::location, kPlace));
    all.push_back(property<AcDbMText>("mtext height", lines, &AcDbMText::setTextHeight,
                                      &AcDbMText::textHeight, 0.5, {0.0}));
    all.push_back(
        property<AcDbMText>("mtext width", lines, &AcDbMText::setWidth, &AcDbMText::width, 80.0, {-1.0}));
    all.push_back(
        property<AcDbMText>("mtext rotation", lines, &AcDbMText::setRotation, &AcDbMText::rotation, 1.25));
    all.push_back(property<AcDbMText>("mtext direction", lines, &AcDbMText::setDirection,
                                      &AcDbMText::direction, AcGeVector3d(0.6, 0.8, 0)));
    all.push_back(
        property<AcDbMText>("mtext normal", lines, &AcDbMText::setNormal, &AcDbMText::normal, kTilted));
    all.push_back(property<AcDbMText>(
        "mtext attachment", lines, &AcDbMText::setAttachment, &AcDbMText::attachment, AcDbMText::kBottomRight,
        {static_cast<AcDbMText::AttachmentPoint>(0), static_cast<AcDbMText::AttachmentPoint>(10)}));
    all.push_back(property<AcDbMText>("mtext spacing", lines, &AcDbMText::setLineSpacingFactor,
                                      &AcDbMText::lineSpacingFactor, 4.0, {0.2, 4.1}));
}

void addReferences(std::vector<Property>& all) {
    const std::function<AcDbBlockReference*()> reference = [] {
        auto* const made = new AcDbBlockReference;
        made->setNormal({1, 1, -3});
        return made;
    };
    all.push_back(property<AcDbBlockReference>("reference position", reference,
                                               &AcDbBlockReference::setPosition,
                                               &AcDbBlockReference::position, kPlace));
    all.push_back(property<AcDbBlockReference>("reference rotation", reference,
                                               &AcDbBlockReference::setRotation,
                                               &AcDbBlockReference::rotation, 1.5));
    all.push_back(property<AcDbBlockReference>("reference normal", reference, &AcDbBlockReference::setNormal,
                                               &AcDbBlockReference::normal, kTilted));
    all.push_back(property<AcDbBlockReference>(
        "reference scale", reference, &AcDbBlockReference::setScaleFactors, &AcDbBlockReference::scaleFactors,
        AcGeScale3d(2, -3, 0.5), {AcGeScale3d(kNan, 1, 1), AcGeScale3d(1, 1, kInfinite)}));
    const std::function<AcDbLine*()> line = [] { return new AcDbLine({1, 2, 3}, {4, 5, 6}); };
    all.push_back(property<AcDbLine>("colour", line, &AcDbEntity::setColorIndex, &AcDbEntity::colorIndex,
                                     Adesk::UInt16{7}, {Adesk::UInt16{257}}));
}

const std::vector<Property>& properties() {
    static const std::vector<Property> all = [] {
        std::vector<Property> made;
        addCurves(made);
        addPolylines(made);
        addTexts(made);
        addReferences(made);
        return made;
    }();
    return all;
}

/// Splits a drawing into its objects by handle, without the header, which counts saves.
std::map<std::string, std::string> objectsOf(const std::string& bytes) {
    std::map<std::string, std::string> objects;
    const std::string start = "\n  0\n";
    for (std::size_t at = bytes.find(start, bytes.find("\nTABLES")); at != std::string::npos;) {
        const std::size_t next = bytes.find(start, at + 1);
        const std::string text = bytes.substr(at, next == std::string::npos ? next : next - at);
        const std::size_t handle = text.find("\n  5\n");
        if (handle != std::string::npos)
            objects[text.substr(handle + 5, text.find('\n', handle + 5) - handle - 5)] = text;
        at = next;
    }
    return objects;
}

/// Returns the handles of the objects that differ or that only one drawing has.
std::vector<std::string> differing(const std::string& bytes, const std::string& other) {
    const auto objects = objectsOf(bytes);
    const auto others = objectsOf(other);
    std::vector<std::string> handles;
    for (const auto& [handle, text] : objects)
        if (const auto found = others.find(handle); found == others.end() || found->second != text)
            handles.push_back(handle);
    for (const auto& [handle, text] : others)
        if (!objects.contains(handle))
            handles.push_back(handle);
    return handles;
}

class EntitySetters : public SampleDrawing {
protected:
    [[nodiscard]] std::string saved() const { return zuhost::dxfOutBytes(*drawing, false); }
};

} // namespace

TEST_F(EntitySetters, ValuesAreReadBackUndoneAndSavedWithoutTouchingOtherObjects) {
    std::vector<AcDbObjectId> ids;
    for (const Property& property : properties())
        ids.push_back(add(*drawing, property.make()));
    const std::string before = saved();
    for (std::size_t i = 0; i < ids.size(); ++i) {
        SCOPED_TRACE(properties()[i].name);
        drawing->startUndoRecord();
        const AcDbObjectPointer<AcDbEntity> entity(ids[i], AcDb::kForWrite);
        EXPECT_FALSE(properties()[i].holds(*entity)) << "the value would show nothing";
        EXPECT_EQ(properties()[i].set(*entity.object()), Acad::eOk);
        EXPECT_TRUE(properties()[i].holds(*entity));
    }
    const std::string after = saved();
    const auto again = readBytes(after);
    EXPECT_TRUE(zuhost::warnings(*again).empty());
    EXPECT_EQ(differing(before, after).size(), ids.size()) << "each entity, and no other object";
    for (std::size_t i = 0; i < ids.size(); ++i) {
        SCOPED_TRACE(properties()[i].name);
        const AcDbObjectPointer<AcDbEntity> entity(idIn(*again, ids[i].handle().value()));
        ASSERT_EQ(entity.openStatus(), Acad::eOk);
        EXPECT_TRUE(properties()[i].holds(*entity));
    }
    for (std::size_t i = 0; i < ids.size(); ++i)
        EXPECT_EQ(drawing->undo(), Acad::eOk);
    EXPECT_EQ(differing(before, saved()), std::vector<std::string>());
}

TEST_F(EntitySetters, RefusedValuesAndEntitiesOpenForReadChangeNothing) {
    std::vector<AcDbObjectId> ids;
    for (const Property& property : properties())
        ids.push_back(add(*drawing, property.make()));
    const std::string before = saved();
    for (std::size_t i = 0; i < ids.size(); ++i) {
        SCOPED_TRACE(properties()[i].name);
        {
            const AcDbObjectPointer<AcDbEntity> entity(ids[i], AcDb::kForRead);
            EXPECT_EQ(properties()[i].set(const_cast<AcDbEntity&>(*entity)), Acad::eNotOpenForWrite);
        }
        const AcDbObjectPointer<AcDbEntity> entity(ids[i], AcDb::kForWrite);
        for (std::size_t bad = 0; bad < properties()[i].refused.size(); ++bad)
            EXPECT_EQ(properties()[i].refused[bad](*entity.object()), Acad::eInvalidInput) << bad;
    }
    EXPECT_EQ(differing(before, saved()), std::vector<std::string>());
}

TEST_F(EntitySetters, NumbersThatAreNotFiniteAreRefusedWhereverADrawingHoldsNumbers) {
    for (const double bad : {kNan, kInfinite, -kInfinite}) {
        AcDbPolyline polyline;
        for (unsigned int i = 0; i < 3; ++i)
            polyline.addVertexAt(i, {static_cast<double>(i), 0});
        EXPECT_EQ(polyline.addVertexAt(1, {bad, 0}), Acad::eInvalidInput);
        EXPECT_EQ(polyline.addVertexAt(1, {0, 0}, bad), Acad::eInvalidInput);
        EXPECT_EQ(polyline.setPointAt(1, {0, bad}), Acad::eInvalidInput);
        EXPECT_EQ(polyline.setBulgeAt(1, bad), Acad::eInvalidInput);
        EXPECT_EQ(polyline.setWidthsAt(1, 0.5, bad), Acad::eInvalidInput);
        EXPECT_EQ(polyline.setConstantWidth(bad), Acad::eInvalidInput);
        AcGeMatrix3d matrix;
        matrix.entry[2][3] = bad;
        EXPECT_EQ(polyline.transformBy(matrix), Acad::eInvalidInput);
        EXPECT_EQ(polyline.numVerts(), 3U);
        AcGePoint2d point;
        EXPECT_EQ(polyline.getPointAt(1, point), Acad::eOk);
        EXPECT_EQ(point, AcGePoint2d(1, 0));
        EXPECT_FALSE(polyline.hasWidth());

        AcDbEllipse ellipse({1, 0, 0}, AcGeVector3d::kZAxis, {2, 0, 0}, 0.5);
        EXPECT_EQ(ellipse.set({5, 0, 0}, AcGeVector3d::kZAxis, {3, 0, 0}, 0.5, 0.0, bad),
                  Acad::eInvalidInput);
        EXPECT_EQ(ellipse.center(), AcGePoint3d(1, 0, 0)) << "unchanged";

        const double scale = drawing->ltscale();
        EXPECT_EQ(drawing->setLtscale(bad), Acad::eInvalidInput);
        EXPECT_EQ(drawing->ltscale(), scale);
        EXPECT_EQ(drawing->setInsbase({0, 0, bad}), Acad::eInvalidInput);

        const AcDbEntityPointer duct(id(kDuct), AcDb::kForWrite);
        resbuf* const data = acutBuildList(1001, L"ZU_LINK", 1040, bad, RTNONE);
        EXPECT_EQ(duct->setXData(data), Acad::eInvalidInput);
        EXPECT_FALSE(duct->isModified());
        acutRelRb(data);
    }
}

TEST_F(EntitySetters, AColourIndexReplacesAColourByItsParts) {
    AcDbLine line;
    AcCmColor color;
    color.setRGB(10, 20, 30);
    ASSERT_EQ(line.setColor(color), Acad::eOk);
    EXPECT_TRUE(line.color().isByColor());
    ASSERT_EQ(line.setColorIndex(3), Acad::eOk);
    EXPECT_FALSE(line.color().isByColor());
    EXPECT_EQ(line.color().colorIndex(), 3);
}
