#include "plan/plan_composition.h"

#include "model/drawing_file.h"
#include "painters/painter_canvas.h"
#include "text_outline.h"

#include <zucomn/model/elements.h>

#include <algorithm>
#include <cmath>

namespace zu::app {

namespace {

/// Page units for one pixel of the map of what is drawn, by which labels are placed.
constexpr double kInkCell = 4.0;
/// Any halo: text then takes its whole box, in which no label is placed.
constexpr double kTextHalo = 1.0;
constexpr double kReadable = 4.5;
constexpr double kDanglingDistance = 100.0;
constexpr double kElementDistance = 30.0;

QString handleLabel(std::uint64_t handle) {
    return QString::fromStdString(handleText(AcDbHandle(handle)));
}

} // namespace

/// Their texts are read from the database, which is not used any more once this returns.
void PlanComposition::startLabels() {
    PlanLabels labels = wantedLabels();
    const bool isWorthAThread = !labels.isEmpty() && !labels.isFull();
    labels_ = std::async(isWorthAThread ? std::launch::async | std::launch::deferred : std::launch::deferred,
                         [this, labels = std::move(labels)] { return placed(labels); });
}

PlanLabels PlanComposition::wantedLabels() {
    PlanLabels labels(capitals_);
    for (const PlanMarker& marker : options_.markers)
        if (const QPointF at = onPage(marker.position); isInSight(at))
            labels.addMarker(QString::fromStdString(marker.text), at,
                             marker.colour.isValid() ? theme_.visible(marker.colour) : inks_->finding());
    if (options_.labels != PlanLabelKind::none && page_.size.width() >= kSmallPicture) {
        if (options_.marksJoints && options_.markers.empty())
            addDanglingLabels(labels);
        if (options_.labels == PlanLabelKind::automatic)
            addEquipmentNames(labels);
        else
            addElementLabels(labels);
    }
    return labels;
}

PlanComposition::PlacedLabels PlanComposition::placed(PlanLabels labels) const {
    if (labels.isEmpty() || labels.isFull())
        return {PlanLabels(capitals_), labels.count()};
    const QSize size(static_cast<int>(page_.size.width() / kInkCell) + 1,
                     static_cast<int>(page_.size.height() / kInkCell) + 1);
    QImage ink(size, QImage::Format_Grayscale8);
    if (ink.isNull())
        return {PlanLabels(capitals_), labels.count()};
    ink.fill(0);
    QPainter painter(&ink);
    painter.scale(1.0 / kInkCell, 1.0 / kInkCell);
    {
        picture::PainterCanvas canvas(painter, picture::Letters::areas);
        picture::ShapePainter shapes(canvas, page_.toPage, paintedArea());
        picture::SceneOptions options = scene({});
        options.resolution = shapes.resolution();
        picture::produceShapes(*drawing_, options, [&shapes](const picture::Shape& shape) {
            const bool isText = shape.kind == picture::Shape::Kind::text;
            shapes.paint(shape, {Qt::white, kInkCell, isText ? kTextHalo : 0.0});
            return true;
        });
    }
    painter.end();
    LabelPlacer placer(ink, kInkCell, page_.plan);
    for (const PlanJoint& joint : elements_.joints()) {
        const double radius = joint.joined ? marks_.joined : marks_.dangling;
        const QPointF at = onPage(joint.position);
        if (isInSight(at))
            placer.block({at - QPointF(radius, radius), QSizeF(2.0 * radius, 2.0 * radius)});
    }
    const std::size_t withoutRoom = labels.place(placer);
    return {std::move(labels), withoutRoom};
}

/// Equipment gets its name when its block has no text, and its text when that is too small to read.
void PlanComposition::addEquipmentNames(PlanLabels& labels) const {
    const auto isNamed = [](const PlanElement& e) { return e.code == zucomn::kEquipment; };
    if (std::none_of(elements_.all().begin(), elements_.all().end(), isNamed))
        return;
    struct Seen {
        QPolygonF corners;
        QString text;          ///< The largest.
        double capitals = 0.0; ///< Its height on the page.
    };
    std::unordered_map<std::uint64_t, Seen> seen;
    const Filter isEquipment = [this](std::uint64_t handle) {
        const PlanElement* const element = elements_.find(handle);
        return element != nullptr && element->code == zucomn::kEquipment;
    };
    picture::produceShapes(*drawing_, scene(isEquipment), [&](const picture::Shape& shape) {
        Seen& equipment = seen[shape.source];
        const bool isText = shape.kind == picture::Shape::Kind::text;
        if (isText) {
            const QTransform& place = shape.run.place;
            const double capitals = std::hypot(place.m21(), place.m22()) / page_.scale;
            if (capitals > equipment.capitals)
                equipment = {equipment.corners, shape.run.text.trimmed(), capitals};
        }
        const QRectF box =
            isText ? picture::cornersOf(shape.run).boundingRect() : shape.path.controlPointRect();
        equipment.corners << box.topLeft() << box.bottomRight();
        equipment.corners = QPolygonF(
            {equipment.corners.boundingRect().topLeft(), equipment.corners.boundingRect().bottomRight()});
        return true;
    });
    for (const PlanElement& element : elements_.all()) {
        const auto found = seen.find(element.handle);
        if (found == seen.end() || found->second.capitals >= kReadable)
            continue;
        const QRectF box = page_.toPage.mapRect(found->second.corners.boundingRect());
        if (isInSight(box.center()))
            labels.add(found->second.text.isEmpty() ? elementName(element.id) : found->second.text,
                       box.center(), box.size() / 2.0, inks_->ofElement(element), kElementDistance);
    }
}

void PlanComposition::addDanglingLabels(PlanLabels& labels) {
    for (const PlanJoint& joint : elements_.joints()) {
        const QPointF at = onPage(joint.position);
        if (joint.joined || !isInSight(at))
            continue;
        labels.add(labels.isFull() ? QString() : handleLabel(joint.element), at,
                   {marks_.dangling, marks_.dangling}, theme_.ink, kDanglingDistance);
        if (options_.labels == PlanLabelKind::handles)
            labelled_.insert(joint.element);
    }
}

void PlanComposition::addElementLabels(PlanLabels& labels) const {
    for (const PlanElement& element : elements_.all()) {
        const QPointF at = onPage(element.position);
        if (!element.isShown || !isInSight(at) || labelled_.contains(element.handle))
            continue;
        QString text;
        if (options_.labels == PlanLabelKind::handles)
            text = QString::fromStdString(handleText(element.id));
        else
            text =
                options_.labels == PlanLabelKind::names ? elementName(element.id) : elementSize(element.id);
        if (!text.isEmpty())
            labels.add(text, at, {2.0, 2.0}, theme_.ink, kElementDistance);
    }
}

} // namespace zu::app
