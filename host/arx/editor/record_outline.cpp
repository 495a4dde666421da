#include "record_outline.h"

#include "acdbads.h"
#include "acutads.h"
#include "dbelipse.h"
#include "dbents.h"
#include "geassign.h"
#include "zuhost/curve_points.h"
#include "zuhost/result_chain.h"
#include "zuhost/spline_points.h"

#include <algorithm>
#include <numbers>
#include <span>
#include <utility>

namespace zuhost {

namespace {

constexpr int kPerSpan = 12;
constexpr double kDegree = std::numbers::pi / 180.0;

using Points = std::vector<AcGePoint3d>;
using Items = std::span<const resbuf* const>;

const resbuf* find(Items items, int code) {
    const auto found = std::ranges::find(items, code, &resbuf::restype);
    return found != items.end() ? *found : nullptr;
}

double real(Items items, int code, double missing = 0.0) {
    const resbuf* const item = find(items, code);
    return item != nullptr ? item->resval.rreal : missing;
}

/// Group codes 60 to 79 hold 16 bits, 90 to 99 hold 32.
int integer(Items items, int code, int missing = 0) {
    const resbuf* const item = find(items, code);
    if (item == nullptr)
        return missing;
    return code >= 90 ? item->resval.rlong : item->resval.rint;
}

AcGePoint3d point(Items items, int code, const AcGePoint3d& missing = {}) {
    const resbuf* const item = find(items, code);
    return item != nullptr ? asPnt3d(item->resval.rpoint) : missing;
}

std::vector<double> reals(Items items, int code) {
    std::vector<double> all;
    for (const resbuf* const item : items)
        if (item->restype == code)
            all.push_back(item->resval.rreal);
    return all;
}

Points points(Items items, int code) {
    Points all;
    for (const resbuf* const item : items)
        if (item->restype == code)
            all.push_back(asPnt3d(item->resval.rpoint));
    return all;
}

Points splinePoints(Items items) {
    constexpr int kClosed = 1;
    Points found =
        nurbsPoints({integer(items, 71, 3), reals(items, 40), reals(items, 41), points(items, 10)}, kPerSpan);
    if (found.empty())
        found = fitCurve(points(items, 11), (integer(items, 70) & kClosed) != 0, point(items, 12).asVector(),
                         point(items, 13).asVector(), kPerSpan);
    return found;
}

/// Reads the boundaries of a hatch: for each loop (92) a polyline or edges (72).
class HatchReader {
public:
    HatchReader(Items items, int chordsPerTurn) : items_(items), chords_(chordsPerTurn) {}

    std::vector<Points> read() {
        std::size_t at = next(0, 91);
        while (at < items_.size()) {
            at = next(at, 92);
            const std::size_t end = std::min({next(at + 1, 92), next(at, 97), next(at, 75), items_.size()});
            if (at < end)
                readLoop(items_.subspan(at, end - at));
            at = std::max(end, at + 1);
        }
        return std::move(paths_);
    }

private:
    [[nodiscard]] std::size_t next(std::size_t at, int code) const {
        while (at < items_.size() && items_[at]->restype != code)
            ++at;
        return at;
    }

    void readLoop(Items loop) {
        constexpr int kPolyline = 2;
        if ((integer(loop, 92) & kPolyline) != 0)
            return readPolyline(loop);
        for (std::size_t i = 0; i < loop.size(); ++i) {
            if (loop[i]->restype != 72)
                continue;
            std::size_t end = i + 1;
            while (end < loop.size() && loop[end]->restype != 72)
                ++end;
            readEdge(loop.subspan(i, end - i));
        }
    }

    void readPolyline(Items loop) {
        AcDbPolyline polyline;
        for (const resbuf* const item : loop)
            if (item->restype == 10)
                polyline.addVertexAt(polyline.numVerts(), {item->resval.rpoint[X], item->resval.rpoint[Y]});
            else if (item->restype == 42 && polyline.numVerts() > 0)
                polyline.setBulgeAt(polyline.numVerts() - 1, item->resval.rreal);
        polyline.setClosed(integer(loop, 73) != 0);
        add(curvePoints(polyline, chords_));
    }

    void readEdge(Items edge) {
        const AcGePoint3d first = point(edge, 10);
        // Clockwise arcs have the angles of their mirror image.
        const bool isClockwise = integer(edge, 73, 1) == 0;
        double start = real(edge, 50) * kDegree;
        double end = real(edge, 51, 360.0) * kDegree;
        if (isClockwise)
            start = -std::exchange(end, -start);
        switch (integer(edge, 72)) {
        case 1:
            return add({first, point(edge, 11)});
        case 2:
            return add(curvePoints(AcDbArc(first, real(edge, 40), start, end), chords_));
        case 3: {
            AcDbEllipse ellipse(first, AcGeVector3d::kZAxis, point(edge, 11).asVector(), real(edge, 40, 1.0));
            ellipse.setStartParam(start);
            ellipse.setEndParam(end);
            return add(curvePoints(ellipse, chords_));
        }
        case 4: {
            Points found = nurbsPoints(
                {integer(edge, 94, 3), reals(edge, 40), reals(edge, 42), points(edge, 10)}, kPerSpan);
            return add(!found.empty() ? std::move(found)
                                      : fitCurve(points(edge, 11), false, {}, {}, kPerSpan));
        }
        default:
            return;
        }
    }

    void add(Points path) {
        if (!path.empty())
            paths_.push_back(std::move(path));
    }

    Items items_;
    int chords_;
    std::vector<Points> paths_;
};

/// Returns four corners in the order in which solids (crosswise) and faces (around) hold them.
Points cornersOf(Items items, bool isCrosswise) {
    const AcGePoint3d third = point(items, 12);
    const AcGePoint3d fourth = point(items, 13, third);
    const AcGePoint3d first = point(items, 10);
    return {first, point(items, 11), isCrosswise ? fourth : third, isCrosswise ? third : fourth, first};
}

} // namespace

RecordOutline recordOutline(const AcDbEntity& entity, int chordsPerTurn) {
    RecordOutline outline;
    ads_name name;
    if (acdbGetAdsName(name, entity.objectId()) != Acad::eOk)
        return outline;
    const ResultChain chain(acdbEntGet(name));
    std::vector<const resbuf*> all;
    for (const resbuf* item = chain.get(); item != nullptr; item = item->rbnext)
        all.push_back(item);
    const Items items(all);
    const resbuf* const type = find(items, 0);
    const std::wstring_view kind(type != nullptr ? type->resval.rstring : L"");
    const AcGeVector3d normal = point(items, 210, {0.0, 0.0, 1.0}).asVector();
    const bool isFlat = kind == L"HATCH" || kind == L"SOLID" || kind == L"TRACE";
    const AcGeMatrix3d toWorld =
        isFlat ? AcGeMatrix3d::planeToWorld(normal.isZeroLength() ? AcGeVector3d::kZAxis : normal)
               : AcGeMatrix3d();
    if (kind == L"SPLINE" || kind == L"HELIX")
        outline.paths = {splinePoints(items)};
    else if (kind == L"HATCH")
        outline.paths = HatchReader(items, chordsPerTurn).read();
    else if (kind == L"LEADER")
        outline.paths = {points(items, 10)};
    else if (kind == L"SOLID" || kind == L"TRACE" || kind == L"3DFACE")
        outline.paths = {cornersOf(items, kind != L"3DFACE")};
    else if (const resbuf* const block = find(items, 2); kind == L"DIMENSION" && block != nullptr)
        outline.block = block->resval.rstring;
    const double elevation = kind == L"HATCH" ? point(items, 10).z : 0.0;
    for (Points& path : outline.paths)
        for (AcGePoint3d& place : path)
            place = toWorld * (place + AcGeVector3d::kZAxis * elevation);
    return outline;
}

} // namespace zuhost
