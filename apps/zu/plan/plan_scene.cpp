#include "plan/plan_scene.h"

#include "failure.h"
#include "model/element.h"

#include "plain_text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/frame.h>
#include <zucomn/model/elements.h>
#include <zucomn/model/joints.h>
#include <zucomn/route.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <unordered_map>

namespace zu::app {

namespace {

constexpr std::size_t kDeepestNesting = 16;
// What takes as long as a point.
constexpr std::uint64_t kPointsPerEntity = 10;
constexpr std::uint64_t kPointsPerLetter = 20;
constexpr double kFarthest = 1e12;
constexpr double kLineHeight = 1.4;
constexpr double kChord = std::numbers::pi / 24.0;
constexpr double kTurn = 2.0 * std::numbers::pi;

/// Of a block reference with an element code.
PlanRole roleOf(AcDbObjectId id, int code) {
    int linkKind = -1;
    RootComn_GetBlockRootKind(id, &linkKind);
    if (zucomn::isRouteKind(linkKind))
        return PlanRole{linkKind};
    if (code == zucomn::kNoElement)
        return PlanRole::background;
    return code == zucomn::kEquipment ? PlanRole::equipment : PlanRole::kindUnknown;
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

bool isNear(const AcGePoint2d& point) {
    return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest;
}

double finite(double value) {
    return std::isfinite(value) ? value : 0.0;
}

/// Stops at a number of points: few blocks that hold each other many times would go on for ever.
class PlanLimit {
public:
    explicit PlanLimit(std::uint64_t most) : most_(most), left_(most) {}

    void take(std::uint64_t points) {
        if (points > left_)
            throw Failure(
                "the plan has more than " + std::to_string(most_ / 1'000'000) +
                " million points to draw: look for blocks that hold very many references to others");
        left_ -= points;
    }

private:
    std::uint64_t most_;
    std::uint64_t left_;
};

/// Produces the strokes and texts of entities.
class SceneBuilder {
public:
    SceneBuilder(PlanCanvas& canvas, std::uint64_t most) : canvas_(canvas), limit_(most) {}

    void addEntity(AcDbObjectId id, const AcGeMatrix3d& toWorld, PlanRole role,
                   AcDbObjectId referenceLayer = {}) {
        limit_.take(kPointsPerEntity);
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() != Acad::eOk || !entity->isVisible() ||
            !layers_.shows(*entity.object(), referenceLayer))
            return;
        if (const auto* line = AcDbLine::cast(entity))
            addPoints(std::array{line->startPoint(), line->endPoint()}, toWorld, role);
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
    void addEquipment(const PlanScene::Item& item, const PlanScene::Equipment& equipment) {
        box_ = {};
        textCount_ = 0;
        addEntity(item.id, AcGeMatrix3d::kIdentity, item.role);
        if (box_.isEmpty() || textCount_ > 0)
            return;
        const bool isAbove =
            equipment.hasConnections && equipment.connectionY < (box_.low.y + box_.high.y) / 2.0;
        const AcGePoint2d place((box_.low.x + box_.high.x) / 2.0, isAbove ? box_.high.y : box_.low.y);
        const PlanAnchor anchor = isAbove ? PlanAnchor::above : PlanAnchor::below;
        addText({equipment.name, place, 0.0, 0.0, false, anchor, item.role});
    }

private:
    /// Holds what it was extended by.
    struct Box {
        static constexpr double kNone = std::numeric_limits<double>::infinity();
        AcGePoint2d low{kNone, kNone};
        AcGePoint2d high{-kNone, -kNone};

        [[nodiscard]] bool isEmpty() const { return low.x > high.x; }
        void extend(const AcGePoint2d& point) {
            low = {std::min(low.x, point.x), std::min(low.y, point.y)};
            high = {std::max(high.x, point.x), std::max(high.y, point.y)};
        }
    };

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
        for (const AcDbObjectId id : block->entityIds())
            addEntity(id, inner, role, layer);
        around_.pop_back();
    }

    /// A stroke with a point that is not near is left out.
    void addPoints(std::span<const AcGePoint3d> points, const AcGeMatrix3d& toWorld, PlanRole role) {
        limit_.take(points.size());
        stroke_.clear();
        for (const AcGePoint3d& point : points) {
            stroke_.push_back((toWorld * point).convert2d());
            if (!isNear(stroke_.back()))
                return;
        }
        if (stroke_.empty())
            return;
        for (const AcGePoint2d& point : stroke_)
            box_.extend(point);
        canvas_.addStroke(stroke_, role);
    }

    void addArc(const AcGePoint3d& centre, double radius, double start, double end,
                const AcGeVector3d& normal, const AcGeMatrix3d& toWorld, PlanRole role) {
        const double turned = std::fmod(end - start, kTurn);
        const double sweep = turned > 0.0 ? turned : turned + kTurn;
        if (!std::isfinite(sweep))
            return;
        const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal);
        const int chords = std::max(1, static_cast<int>(std::ceil(sweep / kChord)));
        points_.clear();
        for (int i = 0; i <= chords; ++i) {
            const double angle = start + sweep * i / chords;
            points_.push_back(centre +
                              plane * AcGeVector3d(radius * std::cos(angle), radius * std::sin(angle), 0.0));
        }
        addPoints(points_, toWorld, role);
    }

    void addPolyline(const AcDbPolyline& polyline, const AcGeMatrix3d& toWorld, PlanRole role) {
        const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(polyline.normal());
        const unsigned count = polyline.numVerts();
        const unsigned corners = count + (polyline.isClosed() && count > 0 ? 1 : 0);
        const double elevation = polyline.elevation();
        points_.clear();
        for (unsigned i = 0; i < corners; ++i) {
            AcGePoint2d point;
            polyline.getPointAt(i % count, point);
            if (i > 0)
                addBulge(points_, polyline, i - 1, point);
            points_.emplace_back(point.x, point.y, elevation);
        }
        addPoints(points_, toWorld * plane, role);
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
        addText({text.toStdString(), (toWorld * position).convert2d(), finite(up.length() * height),
                 finite(std::atan2(along.y, along.x)), along.x * up.y - along.y * up.x < 0.0, anchor, role});
    }

    void addText(const PlanText& text) {
        limit_.take(kPointsPerLetter * (text.text.size() + 1));
        if (!isNear(text.position))
            return;
        ++textCount_;
        canvas_.addText(text);
    }

    ShownLayers layers_;
    PlanCanvas& canvas_;
    PlanLimit limit_;
    std::vector<AcDbObjectId> around_; ///< The blocks about what is being added.
    std::vector<AcGePoint3d> points_;  ///< Of the entity that is being added,
    std::vector<AcGePoint2d> stroke_;  ///< and in place.
    Box box_;                          ///< Of the strokes of an equipment.
    std::size_t textCount_ = 0;
};

PlanScene::Equipment readEquipment(AcDbObjectId id) {
    const Element element = readElement(id);
    PlanScene::Equipment equipment{equipmentName(element.block), 0.0, !element.connectionPoints.empty()};
    const auto count = static_cast<double>(element.connectionPoints.size());
    for (const AcGePoint3d& point : element.connectionPoints)
        equipment.connectionY += point.y / count;
    return equipment;
}

} // namespace

PlanScene::PlanScene(DrawingFile& drawing) : elements_(drawing.references()) {
    for (const AcDbObjectId id : drawing.entities()) {
        Item& item = items_.emplace_back();
        item.id = id;
        if (!id.objectClass()->isDerivedFrom(AcDbBlockReference::desc()))
            continue;
        int code = zucomn::kNoElement;
        ZuComn_GetBlockElementCode(id, code);
        item.role = roleOf(id, code);
        if (code != zucomn::kEquipment)
            continue;
        item.equipment = equipment_.size();
        equipment_.push_back(readEquipment(id));
    }
}

std::vector<PlanJoint> PlanScene::findJoints() const {
    const std::vector<zucomn::ConnectionPoint> points = zucomn::connectionPoints(elements_);
    const std::vector<std::vector<AcDbObjectId>> joined = zucomn::joinedElements(points);
    std::vector<PlanJoint> joints;
    joints.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        joints.push_back({points[i].position, !joined[i].empty()});
    return joints;
}

void PlanScene::show(PlanCanvas& canvas, std::uint64_t most) const {
    SceneBuilder builder(canvas, most);
    for (const Item& item : items_) {
        if (item.equipment)
            builder.addEquipment(item, equipment_[*item.equipment]);
        else
            builder.addEntity(item.id, AcGeMatrix3d::kIdentity, item.role);
    }
}

} // namespace zu::app
