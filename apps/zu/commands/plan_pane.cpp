#include "commands/plan_pane.h"

#include "failure.h"
#include "plan/plan_picture.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <zucomn/model/elements.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zu::app {

namespace {

constexpr QSize kSize(300, 220);

double distanceToSegment(const QPointF& point, const QPointF& a, const QPointF& b) {
    const QPointF along = b - a;
    const double length = QPointF::dotProduct(along, along);
    const double share =
        length > 0.0 ? std::clamp(QPointF::dotProduct(point - a, along) / length, 0.0, 1.0) : 0.0;
    const QPointF apart = point - (a + share * along);
    return std::hypot(apart.x(), apart.y());
}

} // namespace

PlanPane::PlanPane(AcDbDatabase& drawing, Select select) : drawing_(drawing), select_(std::move(select)) {
    setMinimumSize(kSize / 2);
    for (const AcDbObjectId id : zucomn::modelSpaceReferences(drawing)) {
        const auto element = zucomn::readElement(id);
        if (!element || element->code == zucomn::kNoElement)
            continue;
        Place& place = places_.emplace_back(Place{id, {}});
        for (const AcGePoint3d& point : element->connectionPoints)
            place.points.emplace_back(point.x, point.y);
        if (place.points.empty())
            place.points.emplace_back(element->origin.x, element->origin.y);
    }
    constexpr int kPause = 150; // Milliseconds.
    redraw_.setSingleShot(true);
    redraw_.setInterval(kPause);
    redraw_.callOnTimeout(this, [this] {
        draw();
        update();
    });
}

QSize PlanPane::sizeHint() const {
    return kSize;
}

void PlanPane::mark(std::unordered_set<AcDbObjectId> elements) {
    marked_ = std::move(elements);
    update();
}

/// A drawing whose plan cannot be drawn leaves the pane empty; `zu plan` says why.
void PlanPane::draw() {
    PlanOptions options;
    options.theme = palette().color(QPalette::Base).lightness() < 128 ? PlanTheme::dark : PlanTheme::light;
    options.size = (QSizeF(size()) * devicePixelRatioF()).toSize();
    options.hasLegend = false;
    options.marksJoints = false;
    options.labels = PlanLabelKind::none;
    try {
        const PlanPicture picture(drawing_, options);
        plan_ = picture.image();
        toPane_ =
            picture.toPicture() * QTransform::fromScale(1.0 / devicePixelRatioF(), 1.0 / devicePixelRatioF());
        plan_.setDevicePixelRatio(devicePixelRatioF());
    } catch (const Failure&) {
        plan_ = {};
    }
}

void PlanPane::resizeEvent(QResizeEvent* /*event*/) {
    redraw_.start();
}

QPointF PlanPane::onPane(const AcGePoint2d& point) const {
    return toPane_.map(QPointF(point.x, point.y));
}

void PlanPane::paintEvent(QPaintEvent* /*event*/) {
    constexpr int kLineWidth = 6;
    constexpr double kDot = 5.0;
    constexpr QColor kMark(255, 140, 0, 200);
    if (plan_.isNull())
        draw();
    if (plan_.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(QPointF(0, 0), plan_);
    painter.setPen(QPen(kMark, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(kMark);
    for (const Place& place : places_) {
        if (!marked_.contains(place.id))
            continue;
        for (const AcGePoint2d& point : place.points)
            painter.drawLine(onPane(place.points.front()), onPane(point));
        if (place.points.size() == 1)
            painter.drawEllipse(onPane(place.points.front()), kDot, kDot);
    }
}

double PlanPane::distance(const Place& place, const QPointF& point) const {
    double nearest = std::numeric_limits<double>::infinity();
    for (const AcGePoint2d& other : place.points)
        nearest = std::min(nearest, distanceToSegment(point, onPane(place.points.front()), onPane(other)));
    return nearest;
}

void PlanPane::mousePressEvent(QMouseEvent* event) {
    constexpr double kReach = 12.0; // Pixels.
    double nearest = kReach;
    AcDbObjectId found;
    for (const Place& place : places_)
        if (const double apart = distance(place, event->position()); apart < nearest) {
            nearest = apart;
            found = place.id;
        }
    if (event->button() == Qt::LeftButton && !found.isNull())
        select_(found);
}

} // namespace zu::app
