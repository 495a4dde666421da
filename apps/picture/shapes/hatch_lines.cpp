#include "shapes/hatch_lines.h"

#include "shapes/curve_path.h"

#include <algorithm>
#include <cmath>

namespace zu::picture {

namespace {

constexpr double kMostLines = 100'000.0;
constexpr double kMostDashes = 100'000.0;
constexpr int kElementsPerPath = 4'000;

/// Where a line crosses the border: its number and the place along it.
struct Crossing {
    std::int64_t line;
    double along;

    bool operator<(const Crossing& other) const {
        return line != other.line ? line < other.line : along < other.along;
    }
};

/// The family in its own coordinates: x along the lines, y in lines.
class Family {
public:
    explicit Family(const PatternLine& line)
        : line_(line), direction_(std::cos(line.angle), std::sin(line.angle)),
          normal_(-direction_.y(), direction_.x()), spacing_(QPointF::dotProduct(line.offset, normal_)),
          shift_(QPointF::dotProduct(line.offset, direction_)) {}

    [[nodiscard]] bool isValid() const { return std::isfinite(spacing_) && std::abs(spacing_) > 0.0; }
    [[nodiscard]] QPointF own(QPointF point) const {
        const QPointF from = point - line_.base;
        return {QPointF::dotProduct(from, direction_), QPointF::dotProduct(from, normal_) / spacing_};
    }
    [[nodiscard]] QPointF place(double along, std::int64_t number) const {
        return line_.base + direction_ * along + normal_ * (spacing_ * static_cast<double>(number));
    }
    /// Where the dashes of a line start.
    [[nodiscard]] double dashStart(std::int64_t number) const { return shift_ * static_cast<double>(number); }

private:
    const PatternLine& line_;
    QPointF direction_;
    QPointF normal_;
    double spacing_;
    double shift_;
};

/// The lines that an edge crosses; an edge on a line crosses none.
bool addCrossings(QPointF from, QPointF to, const std::function<bool(std::uint64_t)>& take,
                  std::vector<Crossing>& crossings) {
    if (from.y() > to.y())
        std::swap(from, to);
    const double first = std::ceil(from.y());
    const double last = std::ceil(to.y()) - 1.0;
    if (!(last >= first))
        return true;
    if (!(last - first < kMostLines) || !take(static_cast<std::uint64_t>(last - first) + 1))
        return false;
    for (double line = first; line <= last; line += 1.0)
        crossings.push_back({static_cast<std::int64_t>(line),
                             from.x() + (to.x() - from.x()) * ((line - from.y()) / (to.y() - from.y()))});
    return true;
}

/// Collects pieces of lines in paths.
class PieceCollector {
public:
    PieceCollector(const Family& family, const PatternLine& line,
                   const std::function<bool(std::uint64_t)>& take,
                   const std::function<void(const QPainterPath&)>& draw)
        : family_(family), dashes_(line.dashes), take_(take), draw_(draw) {
        for (const double dash : dashes_)
            length_ += std::abs(dash);
    }

    bool add(std::int64_t line, double from, double to) {
        if (dashes_.empty() || !(length_ > 0.0))
            return addPiece(line, from, to);
        const double start = family_.dashStart(line);
        const double skipped = std::floor((from - start) / length_);
        if (!((to - from) / length_ < kMostDashes))
            return addPiece(line, from, to);
        for (double at = start + skipped * length_; at < to;) {
            const double before = at;
            for (const double dash : dashes_) {
                const double end = at + std::max(std::abs(dash), dash == 0.0 ? length_ * 0.01 : 0.0);
                if (dash >= 0.0 && end > from && at < to &&
                    !addPiece(line, std::max(at, from), std::min(end, to)))
                    return false;
                at += std::abs(dash);
            }
            if (!(at > before))
                return true; // too far from the origin for so short dashes
        }
        return true;
    }

    void flush() {
        if (!path_.isEmpty())
            draw_(path_);
        path_.clear();
    }

private:
    bool addPiece(std::int64_t line, double from, double to) {
        if (!take_(2))
            return false;
        path_.moveTo(family_.place(from, line));
        path_.lineTo(family_.place(to, line));
        if (path_.elementCount() >= kElementsPerPath)
            flush();
        return true;
    }

    const Family& family_;
    const std::vector<double>& dashes_;
    double length_ = 0.0;
    const std::function<bool(std::uint64_t)>& take_;
    const std::function<void(const QPainterPath&)>& draw_;
    QPainterPath path_;
};

bool isTooDense(const QPainterPath& area, const Family& family) {
    const QRectF box = area.controlPointRect();
    double low = INFINITY;
    double high = -INFINITY;
    for (const QPointF corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
        const double y = family.own(corner).y();
        low = std::min(low, y);
        high = std::max(high, y);
    }
    constexpr double kFarthest = 1e15;
    return !(high - low < kMostLines) || !(std::abs(low) < kFarthest) || !(std::abs(high) < kFarthest);
}

} // namespace

HatchResult hatchLines(const QPainterPath& area, const PatternLine& line,
                       const std::function<bool(std::uint64_t)>& take,
                       const std::function<void(const QPainterPath&)>& draw) {
    const Family family(line);
    if (!family.isValid() || isTooDense(area, family))
        return HatchResult::tooDense;
    std::vector<Crossing> crossings;
    for (const QPolygonF& polygon : flattened(area))
        for (qsizetype i = 0; i < polygon.size(); ++i)
            if (!addCrossings(family.own(polygon[i]), family.own(polygon[(i + 1) % polygon.size()]), take,
                              crossings))
                return HatchResult::stopped;
    std::sort(crossings.begin(), crossings.end());
    PieceCollector pieces(family, line, take, draw);
    for (std::size_t i = 0; i + 1 < crossings.size();) {
        if (crossings[i].line != crossings[i + 1].line) {
            ++i;
            continue;
        }
        if (!pieces.add(crossings[i].line, crossings[i].along, crossings[i + 1].along))
            return HatchResult::stopped;
        i += 2;
    }
    pieces.flush();
    return HatchResult::drawn;
}

} // namespace zu::picture
