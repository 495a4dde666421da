#include "plan_scene.h"

#include "element.h"
#include "joints.h"
#include "text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::app {

namespace {

constexpr int kDeepestNesting = 16;
constexpr double kChord = std::numbers::pi / 24.0;
constexpr double kTurn = 2.0 * std::numbers::pi;

PlanRole roleOf(const Element& element) {
    switch (element.linkKind) {
    case 1:
        return PlanRole::kind1;
    case 2:
        return PlanRole::kind2;
    case 3:
        return PlanRole::kind3;
    case 4:
        return PlanRole::kind4;
    default:
        break;
    }
    if (!element.isRouteElement())
        return PlanRole::background;
    return element.code == 0 ? PlanRole::equipment : PlanRole::kindUnknown;
}

class SceneBuilder {
public:
    explicit SceneBuilder(PlanScene& scene) : scene_(scene) {}

    void addEntity(AcDbObjectId id, const AcGeMatrix3d& toWorld, PlanRole role, int depth) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() != Acad::eOk || !entity->isVisible())
            return;
        if (const auto* line = AcDbLine::cast(entity))
            addPoints({line->startPoint(), line->endPoint()}, toWorld, role);
        else if (const auto* circle = AcDbCircle::cast(entity))
            addArc(circle->center(), circle->radius(), 0.0, kTurn, circle->normal(), toWorld, role);
        else if (const auto* arc = AcDbArc::cast(entity))
            addArc(arc->center(), arc->radius(), arc->startAngle(), arc->endAngle(), arc->normal(), toWorld,
                   role);
        else if (const auto* polyline = AcDbPolyline::cast(entity))
            addPolyline(*polyline, toWorld, role);
        else if (const auto* text = AcDbText::cast(entity))
            addText(*text, toWorld, role);
        else if (const auto* paragraph = AcDbMText::cast(entity))
            addParagraph(*paragraph, toWorld, role);
        else if (const auto* reference = AcDbBlockReference::cast(entity))
            addReference(*reference, toWorld, role, depth);
    }

    void addReference(const AcDbBlockReference& reference, const AcGeMatrix3d& toWorld, PlanRole role,
                      int depth) {
        if (depth >= kDeepestNesting)
            return;
        const AcDbObjectPointer<AcDbBlockTableRecord> block(reference.blockTableRecord());
        if (block.openStatus() != Acad::eOk)
            return;
        const AcGeMatrix3d inner =
            toWorld * reference.blockTransform() * AcGeMatrix3d::translation(-block->origin().asVector());
        for (const AcDbObjectId id : block->entityIds())
            addEntity(id, inner, role, depth + 1);
    }

private:
    void addPoints(const std::vector<AcGePoint3d>& points, const AcGeMatrix3d& toWorld, PlanRole role) {
        PlanStroke stroke;
        stroke.role = role;
        for (const AcGePoint3d& point : points)
            stroke.points.push_back((toWorld * point).convert2d());
        scene_.strokes.push_back(std::move(stroke));
    }

    void addArc(const AcGePoint3d& centre, double radius, double start, double end,
                const AcGeVector3d& normal, const AcGeMatrix3d& toWorld, PlanRole role) {
        const double sweep = end > start ? end - start : end - start + kTurn;
        if (!std::isfinite(sweep) || sweep > 2.0 * kTurn)
            return;
        const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal);
        const int chords = std::max(1, static_cast<int>(std::ceil(sweep / kChord)));
        std::vector<AcGePoint3d> points;
        for (int i = 0; i <= chords; ++i) {
            const double angle = start + sweep * i / chords;
            points.push_back(centre +
                             plane * AcGeVector3d(radius * std::cos(angle), radius * std::sin(angle), 0.0));
        }
        addPoints(points, toWorld, role);
    }

    void addPolyline(const AcDbPolyline& polyline, const AcGeMatrix3d& toWorld, PlanRole role) {
        const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(polyline.normal());
        const unsigned count = polyline.numVerts();
        std::vector<AcGePoint3d> points;
        for (unsigned i = 0; i < count + (polyline.isClosed() && count > 0 ? 1 : 0); ++i) {
            AcGePoint2d point;
            polyline.getPointAt(i % count, point);
            if (i > 0)
                addBulge(points, polyline, i - 1, point);
            points.emplace_back(point.x, point.y, polyline.elevation());
        }
        for (AcGePoint3d& point : points)
            point.transformBy(plane);
        addPoints(points, toWorld, role);
    }

    /// The chords of an arc segment: its bulge is the tangent of a quarter of its angle.
    static void addBulge(std::vector<AcGePoint3d>& points, const AcDbPolyline& polyline, unsigned vertex,
                         const AcGePoint2d& end) {
        double bulge = 0.0;
        polyline.getBulgeAt(vertex, bulge);
        if (bulge == 0.0 || !std::isfinite(bulge))
            return;
        const AcGePoint3d start = points.back();
        const double angle = 4.0 * std::atan(bulge);
        const AcGeVector2d chord = end - start.convert2d();
        const double offset = (1.0 - bulge * bulge) / (4.0 * bulge);
        const AcGePoint2d centre(start.x + chord.x / 2.0 - chord.y * offset,
                                 start.y + chord.y / 2.0 + chord.x * offset);
        const AcGeVector2d arm = start.convert2d() - centre;
        const int chords = std::max(2, static_cast<int>(std::ceil(std::abs(angle) / kChord)));
        for (int i = 1; i < chords; ++i) {
            const double turn = angle * i / chords;
            points.emplace_back(centre.x + arm.x * std::cos(turn) - arm.y * std::sin(turn),
                                centre.y + arm.x * std::sin(turn) + arm.y * std::cos(turn), start.z);
        }
    }

    void addText(const AcDbText& text, const AcGeMatrix3d& toWorld, PlanRole role) {
        const bool centred =
            text.horizontalMode() == 4 || text.horizontalMode() == 1 || text.verticalMode() == 2;
        add(narrow(text.textString()), centred ? text.alignmentPoint() : text.position(), text.height(),
            text.rotation(), centred, toWorld, role);
    }

    void addParagraph(const AcDbMText& text, const AcGeMatrix3d& toWorld, PlanRole role) {
        AcGePoint3d position = text.location();
        std::wstring left = text.contents();
        while (!left.empty()) {
            const std::size_t end = left.find(L"\\P");
            position.y -= text.textHeight() * 1.4;
            add(narrow(left.substr(0, end)), position, text.textHeight(), text.rotation(), false, toWorld,
                role);
            left.erase(0, end == std::wstring::npos ? end : end + 2);
        }
    }

    void add(std::string text, const AcGePoint3d& position, double height, double rotation, bool centred,
             const AcGeMatrix3d& toWorld, PlanRole role) {
        const AcGeVector3d up = toWorld * AcGeVector3d(0, height, 0);
        const AcGeVector3d along = toWorld * AcGeVector3d(std::cos(rotation), std::sin(rotation), 0);
        scene_.texts.push_back({std::move(text), (toWorld * position).convert2d(), up.length(),
                                std::atan2(along.y, along.x), centred, role});
    }

    PlanScene& scene_;
};

std::vector<PlanJoint> findJoints(const std::vector<AcDbObjectId>& elements) {
    const std::vector<ConnectionPoint> points = connectionPoints(elements);
    const std::vector<std::vector<AcDbObjectId>> joined = joinedElements(points);
    std::vector<PlanJoint> joints;
    joints.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        joints.push_back({points[i].position, !joined[i].empty()});
    return joints;
}

} // namespace

PlanScene makePlanScene(DrawingFile& drawing) {
    PlanScene scene;
    SceneBuilder builder(scene);
    for (const AcDbObjectId id : drawing.entities()) {
        const bool isReference = id.objectClass()->isDerivedFrom(AcDbBlockReference::desc());
        const PlanRole role = isReference ? roleOf(readElement(id)) : PlanRole::background;
        builder.addEntity(id, AcGeMatrix3d::kIdentity, role, 0);
    }
    scene.joints = findJoints(drawing.references());
    return scene;
}

} // namespace zu::app
