#pragma once

#include <acdb.h>
#include <dbid.h>
#include <gepnt3d.h>

#include <string>
#include <string_view>
#include <vector>

class AcDbBlockReference;
class AcGeMatrix3d;

namespace zu {

using Points = std::vector<AcGePoint3d>;

/// What reading an object gave: a status other than eOk says why there is no value.
template <typename T>
struct Read {
    Acad::ErrorStatus status = Acad::eOk;
    T value{};

    [[nodiscard]] explicit operator bool() const { return status == Acad::eOk; }
};

/// True when reading failed only because someone has an object open at the moment.
[[nodiscard]] constexpr bool isPassing(Acad::ErrorStatus status) {
    return status == Acad::eWasOpenForWrite || status == Acad::eWasOpenForRead ||
           status == Acad::eAtMaxReaders;
}

/// A point of a block definition, taken from its base point in X and Y.
struct DefinitionPoint {
    AcDbObjectId id;
    AcGePoint3d position;
};
using DefinitionPoints = std::vector<DefinitionPoint>;

/// The points of a block definition on a layer.
[[nodiscard]] Read<DefinitionPoints> definitionPoints(AcDbObjectId block, std::wstring_view layer);

/// A point of a definition where a reference puts it, in plan.
[[nodiscard]] AcGePoint3d planPoint(const AcGePoint3d& local, const AcGeMatrix3d& transform);

/// A point in plan: without height.
[[nodiscard]] constexpr AcGePoint3d inPlan(const AcGePoint3d& point) {
    return {point.x, point.y, 0.0};
}

/// The connection points of an element: those of its definition, placed.
[[nodiscard]] Read<Points> connectionPoints(AcDbObjectId element, std::wstring_view layer);

/// Name of the layer of connection points.
[[nodiscard]] std::wstring connectionLayer();

/// The greatest distance of joined points at the present drawing scale.
[[nodiscard]] double connectionTolerance();
/// True above the scale of 1.0, at which the first tolerance counts.
[[nodiscard]] bool isLargeScale();
/// The tolerance of scales up to 1.0.
[[nodiscard]] double smallScaleTolerance();

/// Name of the block that an element refers to; empty when it is no block reference or can't be opened.
[[nodiscard]] std::wstring blockNameOf(AcDbObjectId element);

} // namespace zu
