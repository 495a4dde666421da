#include "joints.h"

#include <acarray.h>
#include <gepnt3d.h>
#include <zucomn/frame.h>
#include <zucomn/route.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace zu::app {

namespace {

constexpr std::size_t kMostJoined = 2;

double connectionTolerance() {
    double large = 0.0;
    double small = 0.0;
    ZuComn_getTolerance(&large, &small);
    return ZuComn_GetGlobalScale() > 1.0 ? large : small;
}

bool isFinite(const ConnectionPoint& point) {
    return std::isfinite(point.position.x) && std::isfinite(point.position.y);
}

/// The points of each element by place, each place once: a block may have any number of points at one place.
std::vector<const ConnectionPoint*> distinctFinite(const std::vector<ConnectionPoint>& points) {
    std::vector<const ConnectionPoint*> distinct;
    for (const ConnectionPoint& point : points)
        if (isFinite(point))
            distinct.push_back(&point);
    const auto isElsewhere = [](const ConnectionPoint* a, const ConnectionPoint* b) {
        return a->element != b->element;
    };
    const auto isBefore = [](const ConnectionPoint* a, const ConnectionPoint* b) {
        return std::tie(a->position.x, a->position.y) < std::tie(b->position.x, b->position.y);
    };
    for (auto first = distinct.begin(); first != distinct.end();) {
        auto last = std::adjacent_find(first, distinct.end(), isElsewhere);
        last = last == distinct.end() ? last : std::next(last);
        std::sort(first, last, isBefore);
        first = last;
    }
    const auto isSame = [](const ConnectionPoint* a, const ConnectionPoint* b) {
        return a->element == b->element && a->position.x == b->position.x && a->position.y == b->position.y;
    };
    distinct.erase(std::unique(distinct.begin(), distinct.end(), isSame), distinct.end());
    return distinct;
}

/// Points sorted by the square cells they lie in, as wide as the tolerance: what is near a point lies in its
/// cell or in one beside it.
class Cells {
public:
    Cells(const std::vector<ConnectionPoint>& points, double tolerance)
        : tolerance_(tolerance), width_(tolerance > 0.0 ? tolerance : 1.0) {
        for (const ConnectionPoint* const point : distinctFinite(points))
            entries_.push_back({index(point->position.x), index(point->position.y), point});
        std::stable_sort(entries_.begin(), entries_.end(), isBefore);
    }

    [[nodiscard]] std::vector<AcDbObjectId> joinedTo(const ConnectionPoint& point) const {
        std::vector<AcDbObjectId> joined;
        if (!isFinite(point))
            return joined;
        for (const double column : {-1.0, 0.0, 1.0})
            addColumn(index(point.position.x) + column, point, joined);
        return joined;
    }

private:
    struct Entry {
        double column;
        double row;
        const ConnectionPoint* point;
    };

    static bool isBefore(const Entry& a, const Entry& b) {
        return std::tie(a.column, a.row) < std::tie(b.column, b.row);
    }

    [[nodiscard]] double index(double coordinate) const { return std::floor(coordinate / width_); }

    void addColumn(double column, const ConnectionPoint& point, std::vector<AcDbObjectId>& joined) const {
        const double row = index(point.position.y);
        auto entry =
            std::lower_bound(entries_.begin(), entries_.end(), Entry{column, row - 1.0, nullptr}, isBefore);
        for (; entry != entries_.end() && entry->column == column && entry->row <= row + 1.0; ++entry) {
            if (joined.size() == kMostJoined)
                return;
            const AcDbObjectId other = entry->point->element;
            if (other != point.element && point.position.distanceTo(entry->point->position) <= tolerance_ &&
                std::find(joined.begin(), joined.end(), other) == joined.end())
                joined.push_back(other);
        }
    }

    double tolerance_;
    double width_;
    std::vector<Entry> entries_;
};

} // namespace

std::vector<ConnectionPoint> connectionPoints(const std::vector<AcDbObjectId>& elements) {
    std::vector<ConnectionPoint> points;
    for (const AcDbObjectId element : elements) {
        AcArray<AcGePoint3d> own;
        ZuComn_GetConnectPoint(element, own);
        for (int i = 0; i < own.length(); ++i)
            points.push_back({element, i, own[i].convert2d()});
    }
    return points;
}

std::vector<std::vector<AcDbObjectId>> joinedElements(const std::vector<ConnectionPoint>& points) {
    const Cells cells(points, connectionTolerance());
    std::vector<std::vector<AcDbObjectId>> joined;
    joined.reserve(points.size());
    for (const ConnectionPoint& point : points)
        joined.push_back(cells.joinedTo(point));
    return joined;
}

} // namespace zu::app
