#include "plan_scene.h"

#include "element.h"
#include "failure.h"
#include "joints.h"

#include "plain_text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/frame.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <unordered_map>

namespace zu::app {

namespace {

constexpr std::size_t kDeepestNesting = 16;
/// Few blocks that hold each other many times would make more than can ever be drawn.
constexpr int kMostNested = 2'000'000;
constexpr int kEquipment = 0;
constexpr double kLineHeight = 1.4;
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
    return element.code == kEquipment ? PlanRole::equipment : PlanRole::kindUnknown;
}

/// The block's name without the prefix that makes it equipment.
std::string equipmentName(const std::string& block) {
    const std::size_t name = block.find_first_not_of('-', 2);
    return name != std::string::npos ? block.substr(name) : block;
}

/// Which layers the plan shows: those that are on, without the marks that it draws itself.
class ShownLayers {
public:
    /// Things of a block on layer 0 lie on the layer of the reference.
    bool shows(const AcDbEntity& entity, AcDbObjectId referenceLayer) {
        const AcDbObjectId layer = layerOf(entity, referenceLayer);
        const auto [known, isNew] = shown_.try_emplace(layer, true);
        if (isNew)
            known->second = isShown(layer);
        return known->second;
    }

    static AcDbObjectId layerOf(const AcDbEntity& entity, AcDbObjectId referenceLayer) {
        return !referenceLayer.isNull() && entity.layerName() == L"0" ? referenceLayer : entity.layerId();
    }

private:
    static bool isShown(AcDbObjectId id) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
        if (layer.openStatus() != Acad::eOk)
            return true;
        const CString name(layer->name());
        return !layer->isOff() && !layer->isFrozen() && name.CompareNoCase(ZUCONECT_LAYER) != 0 &&
               name.CompareNoCase(ZUSNAP_LAYER) != 0;
    }

    std::unordered_map<AcDbObjectId, bool> shown_;
};

class SceneBuilder {
public:
    explicit SceneBuilder(PlanScene& scene) : scene_(scene) {}

    void addEntity(AcDbObjectId id, const AcGeMatrix3d& toWorld, PlanRole role,
                   AcDbObjectId referenceLayer = {}) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() != Acad::eOk || !entity->isVisible() ||
            !layers_.shows(*entity.object(), referenceLayer))
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
            addReference(*reference, toWorld, role, ShownLayers::layerOf(*reference, referenceLayer));
    }

    /// Equipment whose block has no text gets its name, on the side where routes don't join.
    void addEquipment(const Element& element, PlanRole role) {
        const std::size_t firstStroke = scene_.strokes.size();
        const std::size_t firstText = scene_.texts.size();
        addEntity(element.id, AcGeMatrix3d::kIdentity, role);
        const std::span strokes = std::span(scene_.strokes).subspan(firstStroke);
        if (strokes.empty() || scene_.texts.size() > firstText)
            return;
        AcGePoint2d low = strokes.front().points.front();
        AcGePoint2d high = low;
        for (const PlanStroke& stroke : strokes) {
            for (const AcGePoint2d& point : stroke.points) {
                low = {std::min(low.x, point.x), std::min(low.y, point.y)};
                high = {std::max(high.x, point.x), std::max(high.y, point.y)};
            }
        }
        double lean = 0.0;
        for (const AcGePoint3d& point : element.connectionPoints)
            lean += point.y - (low.y + high.y) / 2.0;
        const bool isAbove = lean < 0.0;
        const AcGePoint2d place((low.x + high.x) / 2.0, isAbove ? high.y : low.y);
        const PlanAnchor anchor = isAbove ? PlanAnchor::above : PlanAnchor::below;
        scene_.texts.push_back({equipmentName(element.block), place, 0.0, 0.0, false, anchor, role});
    }

private:
    void addReference(const AcDbBlockReference& reference, const AcGeMatrix3d& toWorld, PlanRole role,
                      AcDbObjectId layer) {
        const AcDbObjectId blockId = reference.blockTableRecord();
        const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId);
        const bool isInItself = std::find(around_.begin(), around_.end(), blockId) != around_.end();
        if (block.openStatus() != Acad::eOk || isInItself || around_.size() == kDeepestNesting)
            return;
        around_.push_back(blockId);
        const AcGeMatrix3d inner =
            toWorld * reference.blockTransform() * AcGeMatrix3d::translation(-block->origin().asVector());
        for (const AcDbObjectId id : block->entityIds()) {
            if (++nested_ > kMostNested)
                throw Failure("the blocks of the drawing hold too much for a plan");
            addEntity(id, inner, role, layer);
        }
        around_.pop_back();
    }

    void addPoints(const std::vector<AcGePoint3d>& points, const AcGeMatrix3d& toWorld, PlanRole role) {
        if (points.empty())
            return;
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
        const unsigned corners = count + (polyline.isClosed() && count > 0 ? 1 : 0);
        const double elevation = polyline.elevation();
        std::vector<AcGePoint3d> points;
        for (unsigned i = 0; i < corners; ++i) {
            AcGePoint2d point;
            polyline.getPointAt(i % count, point);
            if (i > 0)
                addBulge(points, polyline, i - 1, point);
            points.emplace_back(point.x, point.y, elevation);
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
        add(preview::plainText(text.textString()), centred ? text.alignmentPoint() : text.position(),
            text.height(), text.rotation(), centred ? PlanAnchor::middle : PlanAnchor::bottomLeft, toWorld,
            role);
    }

    void addParagraph(const AcDbMText& text, const AcGeMatrix3d& toWorld, PlanRole role) {
        const AcGeVector3d nextLine(std::sin(text.rotation()), -std::cos(text.rotation()), 0.0);
        AcGePoint3d position = text.location();
        for (const QString& line : preview::plainLines(text.contents())) {
            position += nextLine * (text.textHeight() * kLineHeight);
            add(line, position, text.textHeight(), text.rotation(), PlanAnchor::bottomLeft, toWorld, role);
        }
    }

    void add(const QString& text, const AcGePoint3d& position, double height, double rotation,
             PlanAnchor anchor, const AcGeMatrix3d& toWorld, PlanRole role) {
        const AcGeVector3d along = toWorld * AcGeVector3d(std::cos(rotation), std::sin(rotation), 0);
        const AcGeVector3d up = toWorld * AcGeVector3d(-std::sin(rotation), std::cos(rotation), 0);
        scene_.texts.push_back({text.toStdString(), (toWorld * position).convert2d(), up.length() * height,
                                std::atan2(along.y, along.x), along.x * up.y - along.y * up.x < 0.0, anchor,
                                role});
    }

    ShownLayers layers_;
    PlanScene& scene_;
    std::vector<AcDbObjectId> around_; ///< The blocks about what is being added.
    int nested_ = 0;                   ///< What was added from blocks so far.
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
        if (!id.objectClass()->isDerivedFrom(AcDbBlockReference::desc())) {
            builder.addEntity(id, AcGeMatrix3d::kIdentity, PlanRole::background);
            continue;
        }
        const Element element = readElement(id);
        if (element.code == kEquipment)
            builder.addEquipment(element, roleOf(element));
        else
            builder.addEntity(id, AcGeMatrix3d::kIdentity, roleOf(element));
    }
    scene.joints = findJoints(drawing.references());
    return scene;
}

} // namespace zu::app
