#include "plan/scene_picture.h"

#include "failure.h"
#include "plan/picture_file.h"

#include <zucomn/model/elements.h>
#include <zuhost/desktop.h>
#include <zuhost/language.h>

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <set>
#include <span>
#include <vector>

namespace zu::app {

namespace {

constexpr const char* kFont = "IPAexGothic";
constexpr double kMargin = 0.03;
constexpr int kLegendLine = 22;
constexpr int kTallest = 4; ///< Widths.
// What can be drawn in a minute, and what an .svg file of some hundred megabytes holds.
constexpr std::uint64_t kMostInPng = 80'000'000;
constexpr std::uint64_t kMostInSvg = 15'000'000;
constexpr double kSmallestText = 11.0;
constexpr double kLargestText = 500.0;
constexpr double kLabelGap = 3.0;
constexpr double kJoinedRadius = 2.0;
constexpr double kDanglingRadius = 4.5;

const QColor kInk(0x21, 0x21, 0x21);
const QColor kDangling(0xff, 0xd6, 0x00);
const QColor kTextGround(0xff, 0xff, 0xff, 0xd0);
/// Texts that run down or up are left as they are.
constexpr double kNearlyUpright = 1e-6;

struct RoleStyle {
    PlanRole role;
    QColor colour;
    QString legend; ///< Empty for the background.
};

/// In English unless the environment names a language: the library's own texts are Japanese.
zucomn::LegendWords legendWords() {
    if (zuhost::environmentNamesLanguage())
        return zucomn::legendWords();
    return {L"equipment", L"other", L"joined", L"dangling"};
}

/// The route kinds in their order, then what belongs to none, as the legend lists them.
std::vector<RoleStyle> roleStyles() {
    const bool hasLanguage = zuhost::environmentNamesLanguage();
    const zucomn::LegendWords words = legendWords();
    std::vector<RoleStyle> styles;
    for (const zucomn::RouteKind& kind : zucomn::routeKinds())
        styles.push_back(
            {PlanRole{kind.number}, QColor(kind.colour),
             hasLanguage ? QString::fromStdWString(kind.name) : QString("link kind %1").arg(kind.number)});
    styles.push_back({PlanRole::equipment, {0x7b, 0x1f, 0xa2}, QString::fromStdWString(words.equipment)});
    styles.push_back({PlanRole::kindUnknown, {0x5d, 0x40, 0x37}, QString::fromStdWString(words.other)});
    styles.push_back({PlanRole::background, {0x9a, 0xa0, 0xa6}, {}});
    return styles;
}

/// The area and the roles of what a plan shows.
class PlanMeasure : public PlanCanvas {
public:
    void addStroke(std::span<const AcGePoint2d> points, PlanRole role) override {
        roles_.insert(role);
        for (const AcGePoint2d& point : points)
            add(point);
    }
    void addText(const PlanText& text) override { add(text.position); }
    void add(const AcGePoint2d& point) {
        left_ = std::min(left_, point.x);
        right_ = std::max(right_, point.x);
        bottom_ = std::min(bottom_, point.y);
        top_ = std::max(top_, point.y);
    }

    [[nodiscard]] QRectF area() const {
        return left_ > right_ ? QRectF(0.0, 0.0, 1.0, 1.0)
                              : QRectF(QPointF(left_, bottom_), QPointF(right_, top_));
    }
    [[nodiscard]] const std::set<PlanRole>& roles() const { return roles_; }

private:
    double left_ = std::numeric_limits<double>::max();
    double right_ = std::numeric_limits<double>::lowest();
    double bottom_ = std::numeric_limits<double>::max();
    double top_ = std::numeric_limits<double>::lowest();
    std::set<PlanRole> roles_;
};

/// What is painted.
struct Plan {
    const PlanScene& scene;
    std::uint64_t most;
    PlanMeasure measure;
    std::vector<PlanJoint> joints;
};

/// Where the plan lies on the picture.
class Sheet {
public:
    Sheet(const QRectF& area, int width) : width_(width) {
        const double margin = kMargin * std::max(area.width(), area.height());
        left_ = area.left() - margin;
        top_ = area.bottom() + margin;
        const double across = std::max(area.width() + 2.0 * margin, 1e-9);
        const double high = area.height() + 2.0 * margin;
        const int tallest = kTallest * width_;
        scale_ = std::min(width_ / across, tallest / std::max(high, 1e-9));
        const double rows = high * scale_;
        // Written so that NaN gives the least height.
        const double shown = rows > 100.0 ? std::min<double>(rows, tallest) : 100.0;
        height_ = static_cast<int>(shown) + 2 * kLegendLine;
    }

    [[nodiscard]] QSize size() const { return {width_, height_}; }
    [[nodiscard]] double scale() const { return scale_; }
    [[nodiscard]] QPointF place(const AcGePoint2d& point) const {
        return {(point.x - left_) * scale_, (top_ - point.y) * scale_};
    }

private:
    double left_;
    double top_;
    double scale_ = 1.0;
    int width_;
    int height_ = 0;
};

/// Paints in passes: texts cover strokes.
class PlanPainter : public PlanCanvas {
public:
    PlanPainter(QPainter& painter, const Sheet& sheet) : painter_(painter), sheet_(sheet) {}

    void paint(const Plan& plan) {
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.fillRect(QRect(QPoint(0, 0), sheet_.size()), Qt::white);
        for (const bool texts : {false, true}) {
            paintsTexts_ = texts;
            plan.scene.show(*this, plan.most);
        }
        for (const bool joined : {true, false})
            for (const PlanJoint& joint : plan.joints)
                if (joint.joined == joined)
                    paintMark(sheet_.place(joint.position), joined);
        paintLegend(plan.measure.roles());
    }

    void addStroke(std::span<const AcGePoint2d> points, PlanRole role) override {
        if (!paintsTexts_)
            paintStroke(points, role);
    }
    void addText(const PlanText& text) override {
        if (paintsTexts_)
            paintText(text);
    }

private:
    [[nodiscard]] const QColor& colourOf(PlanRole role) const {
        return std::find_if(styles_.begin(), styles_.end(),
                            [role](const RoleStyle& s) { return s.role == role; })
            ->colour;
    }

    void paintStroke(std::span<const AcGePoint2d> points, PlanRole role) {
        line_.clear();
        for (const AcGePoint2d& point : points)
            line_ << sheet_.place(point);
        painter_.setPen(QPen(colourOf(role), role == PlanRole::background ? 1.0 : 1.6));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawPolyline(line_);
    }

    /// Upright enough to be read, whatever way its block is turned, and on a ground that covers lines.
    void paintText(const PlanText& text) {
        const double size = std::max(text.height * sheet_.scale(), kSmallestText);
        QFont font(kFont);
        font.setPixelSize(static_cast<int>(std::lround(std::min(size, kLargestText))));
        const QString words = QString::fromStdString(text.text);
        const double width = QFontMetricsF(font).horizontalAdvance(words);
        painter_.save();
        painter_.translate(sheet_.place(text.position));
        painter_.rotate(-text.rotation * 180.0 / std::numbers::pi);
        painter_.translate(centreOf(text, width, size));
        if (std::cos(text.rotation) < -kNearlyUpright)
            painter_.rotate(180.0);
        painter_.fillRect(QRectF(-width / 2.0, -size / 2.0, width, size), kTextGround);
        painter_.setFont(font);
        painter_.setPen(text.role == PlanRole::background ? kInk : colourOf(text.role));
        painter_.drawText(QPointF(-width / 2.0, size * 0.36), words);
        painter_.restore();
    }

    /// Along the base line and downwards.
    static QPointF centreOf(const PlanText& text, double width, double size) {
        const double side = text.mirrored ? -1.0 : 1.0;
        switch (text.anchor) {
        case PlanAnchor::bottomLeft:
            return {width / 2.0, -side * size / 2.0};
        case PlanAnchor::middle:
            return {0.0, 0.0};
        case PlanAnchor::above:
            return {0.0, -size / 2.0 - kLabelGap};
        case PlanAnchor::below:
            return {0.0, size / 2.0 + kLabelGap};
        }
        return {};
    }

    void paintMark(const QPointF& place, bool joined) {
        painter_.setPen(QPen(kInk, joined ? 1.0 : 1.6));
        painter_.setBrush(joined ? kInk : kDangling);
        const double radius = joined ? kJoinedRadius : kDanglingRadius;
        painter_.drawEllipse(place, radius, radius);
    }

    void paintLegend(const std::set<PlanRole>& roles) {
        QFont font(kFont);
        font.setPixelSize(14);
        painter_.setFont(font);
        double x = 16.0;
        const double y = sheet_.size().height() - 0.8 * kLegendLine;
        const auto label = [&](const QString& words) {
            painter_.setPen(kInk);
            painter_.drawText(QPointF(x + 30.0, y + 5.0), words);
            x += 30.0 + QFontMetricsF(font).horizontalAdvance(words) + 24.0;
        };
        for (const RoleStyle& style : styles_) {
            if (style.legend.isEmpty() || !roles.contains(style.role))
                continue;
            painter_.setPen(QPen(style.colour, 3.0));
            painter_.drawLine(QPointF(x, y), QPointF(x + 24.0, y));
            label(style.legend);
        }
        const zucomn::LegendWords words = legendWords();
        paintMark(QPointF(x + 12.0, y), true);
        label(QString::fromStdWString(words.joined));
        paintMark(QPointF(x + 12.0, y), false);
        label(QString::fromStdWString(words.dangling));
    }

    QPainter& painter_;
    const Sheet& sheet_;
    const std::vector<RoleStyle> styles_ = roleStyles();
    QPolygonF line_;
    bool paintsTexts_ = false;
};

/// Empty when the picture is too large.
QByteArray asPng(const Plan& plan, const Sheet& sheet) {
    QImage image(sheet.size(), QImage::Format_RGB32);
    QPainter painter;
    if (image.isNull() || !painter.begin(&image))
        return {};
    PlanPainter(painter, sheet).paint(plan);
    painter.end();
    return pngOf(image);
}

QByteArray asSvg(const Plan& plan, const Sheet& sheet) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(sheet.size());
    generator.setViewBox(QRect(QPoint(0, 0), sheet.size()));
    generator.setTitle("Plan");
    QPainter painter(&generator);
    PlanPainter(painter, sheet).paint(plan);
    painter.end();
    return bytes;
}

} // namespace

void drawPlan(const PlanScene& scene, const std::string& file, int width) {
    // Pictures need no screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    zuhost::ensureDesktop();
    const QString name = QString::fromStdString(file);
    const bool svg = name.endsWith(".svg", Qt::CaseInsensitive);
    if (!svg && !name.endsWith(".png", Qt::CaseInsensitive))
        throw WrongUsage(file + ": a plan is drawn into a .png or .svg file");
    Plan plan{scene, svg ? kMostInSvg : kMostInPng, {}, {}};
    scene.show(plan.measure, plan.most);
    plan.joints = scene.findJoints();
    for (const PlanJoint& joint : plan.joints)
        plan.measure.add(joint.position);
    const Sheet sheet(plan.measure.area(), width);
    const QByteArray bytes = svg ? asSvg(plan, sheet) : asPng(plan, sheet);
    if (bytes.isEmpty())
        throw Failure(file + ": a picture of " + std::to_string(sheet.size().width()) + " x " +
                      std::to_string(sheet.size().height()) +
                      " pixels is too large; --width makes it smaller");
    savePicture(bytes, file);
}

} // namespace zu::app
