#include "connection_points.h"

#include "connection_indexes.h"
#include "dbservices/block_entities.h"
#include "entity_names.h"
#include "frame/text_view.h"

#include <zucomn/frame.h>
#include <zucomn/route.h>

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <windows.h>

#include <array>
#include <charconv>

namespace zu {

namespace {

bool isOnLayer(const AcDbEntity& entity, const std::wstring& layer) {
    return _wcsicmp(zu::layerName(entity).c_str(), layer.c_str()) == 0;
}

CString coordinateText(double value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return zu::textOf(std::wstring(digits.data(), end));
}

/// The points under the transform of a reference.
Read<Points> placed(const Read<DefinitionPoints>& definition, const AcDbBlockReference& reference) {
    Read<Points> points{definition.status, {}};
    const AcGeMatrix3d transform = reference.blockTransform();
    points.value.reserve(definition.value.size());
    for (const DefinitionPoint& point : definition.value)
        points.value.push_back(planPoint(point.position, transform));
    return points;
}

/// Returns whether a definition with these points can be read now.
Acad::ErrorStatus statusOf(AcDbObjectId block, const DefinitionPoints& points) {
    const Acad::ErrorStatus status = AcDbObjectPointer<AcDbBlockTableRecord>(block).openStatus();
    if (status != Acad::eOk)
        return status;
    for (const DefinitionPoint& point : points)
        if (const auto open = AcDbObjectPointer<AcDbPoint>(point.id).openStatus(); isTemporary(open))
            return open;
    return Acad::eOk;
}

} // namespace

Read<DefinitionPoints> definitionPoints(AcDbObjectId block, std::wstring_view layer) {
    const AcDbObjectPointer<AcDbBlockTableRecord> definition(block);
    Read<DefinitionPoints> result{definition.openStatus(), {}};
    if (!result)
        return result;
    const std::wstring wanted(layer);
    const AcGePoint3d origin = definition->origin();
    for (const AcDbObjectId id : zu::entityIds(*definition)) {
        if (id.objectClass() != AcDbPoint::desc())
            continue;
        const AcDbObjectPointer<AcDbPoint> point(id);
        if (isTemporary(point.openStatus()))
            return {point.openStatus(), {}};
        if (point.openStatus() == Acad::eOk && isOnLayer(*point.object(), wanted))
            result.value.push_back({id, point->position() - AcGeVector3d(origin.x, origin.y, 0.0)});
    }
    return result;
}

AcGePoint3d planPoint(const AcGePoint3d& local, const AcGeMatrix3d& transform) {
    return inPlan(transform * local);
}

Read<DefinitionPoints> connectionPointsOf(AcDbObjectId block) {
    if (block.isNull())
        return {Acad::eNullObjectId, {}};
    // A definition may have any number of entities, and any number of references.
    const Read<DefinitionPoints>& known = ConnectionIndexes::of(*block.database()).definition(block);
    const Acad::ErrorStatus now = statusOf(block, known.value);
    return now == Acad::eOk ? known : Read<DefinitionPoints>{now, {}};
}

Read<Points> connectionPoints(AcDbObjectId element, std::wstring_view layer) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return {reference.openStatus(), {}};
    const AcDbObjectId block = reference->blockTableRecord();
    return placed(layer == zu::view(ZUCONECT_LAYER) ? connectionPointsOf(block)
                                                    : definitionPoints(block, layer),
                  *reference.object());
}

std::wstring connectionLayer() {
    return std::wstring(zu::view(ZUCONECT_LAYER));
}

bool isLargeScale() {
    return ZuComn_GetGlobalScale() > 1.0;
}

double smallScaleTolerance() {
    double tolerance = 0.0;
    ZuComn_getTolerance(nullptr, &tolerance);
    return tolerance;
}

double connectionTolerance() {
    if (!isLargeScale())
        return smallScaleTolerance();
    double tolerance = 0.0;
    ZuComn_getTolerance(&tolerance, nullptr);
    return tolerance;
}

std::wstring blockNameOf(AcDbObjectId element) {
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    return reference.openStatus() == Acad::eOk ? zu::blockName(*reference) : std::wstring();
}

} // namespace zu

int ZuComn_GetConnectPoint(const AcDbObjectId& element, AcArray<AcGePoint3d>& points, const wchar_t* layer,
                           CString* text) {
    points.removeAll();
    const bool isLayerGiven = layer != nullptr && *layer != L'\0';
    const auto read = zu::connectionPoints(element, isLayerGiven ? layer : zu::connectionLayer());
    if (!read)
        return -1;
    if (text != nullptr)
        text->Empty();
    for (const AcGePoint3d& point : read.value) {
        points.append(point);
        if (text != nullptr)
            *text += zu::coordinateText(point.x) + L"," + zu::coordinateText(point.y) + L"\n";
    }
    return 0;
}

int RootComn_GetConnectPointNo(const AcDbObjectId& element, const AcGePoint3d& point, int& count) {
    const auto points = zu::connectionPoints(element, zu::connectionLayer());
    count = static_cast<int>(points.value.size());
    const double tolerance = zu::connectionTolerance();
    for (int i = count; i-- > 0;)
        if (tolerance >= points.value[static_cast<std::size_t>(i)].distanceTo(zu::inPlan(point)))
            return i;
    return -1;
}

int RootComn_GetNearConnectPoint(const AcDbObjectId& element, const AcGePoint3d& point, AcGePoint3d& nearest,
                                 double* distance) {
    const auto points = zu::connectionPoints(element, zu::connectionLayer());
    if (!points || points.value.empty())
        return -1;
    nearest = points.value.front();
    double least = nearest.distanceTo(zu::inPlan(point));
    for (const AcGePoint3d& candidate : points.value) {
        const double d = candidate.distanceTo(zu::inPlan(point));
        if (d < least) {
            nearest = candidate;
            least = d;
        }
    }
    if (distance != nullptr)
        *distance = least;
    return 0;
}

int RootComn_GetNearConnectPointInOutCheck(const AcDbObjectId& element, const AcGePoint3d& point,
                                           bool joined) {
    if (!zu::connectionPoints(element, zu::connectionLayer()))
        return -1;
    int count = 0;
    return (RootComn_GetConnectPointNo(element, point, count) >= 0) == joined ? 1 : 0;
}

int RootComn_GetNearPointToPoint(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b,
                                 int& which) {
    which = p.distanceTo(b) < p.distanceTo(a) ? 1 : 0;
    return 0;
}
