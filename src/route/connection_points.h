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

/// A value read from an object; a status other than eOk is the reason why there is none.
template <typename T>
struct Read {
    Acad::ErrorStatus status = Acad::eOk;
    T value{};

    [[nodiscard]] explicit operator bool() const { return status == Acad::eOk; }
};

/// True when reading failed only because an object is open elsewhere for now.
[[nodiscard]] constexpr bool isTemporary(Acad::ErrorStatus status) {
    return status == Acad::eWasOpenForWrite || status == Acad::eWasOpenForRead ||
           status == Acad::eAtMaxReaders;
}

/// A point of a block definition, relative to the base point in X and Y.
struct DefinitionPoint {
    AcDbObjectId id;
    AcGePoint3d position;
};
using DefinitionPoints = std::vector<DefinitionPoint>;

/// The points of a block definition on a layer.
[[nodiscard]] Read<DefinitionPoints> definitionPoints(AcDbObjectId block, std::wstring_view layer);

/// The connection points of a block definition that can be read now.
[[nodiscard]] Read<DefinitionPoints> connectionPointsOf(AcDbObjectId block);

/// The plan point of a definition's point under the transform of a reference.
[[nodiscard]] AcGePoint3d planPoint(const AcGePoint3d& local, const AcGeMatrix3d& transform);

/// A point in plan: without height.
[[nodiscard]] constexpr AcGePoint3d inPlan(const AcGePoint3d& point) {
    return {point.x, point.y, 0.0};
}

/// The connection points of an element: those of its definition in the element's position.
[[nodiscard]] Read<Points> connectionPoints(AcDbObjectId element, std::wstring_view layer);

/// Name of the layer of connection points.
[[nodiscard]] std::wstring connectionLayer();

/// The greatest distance of joined points at the current drawing scale.
[[nodiscard]] double connectionTolerance();
/// True for scales above 1.0, which use the first tolerance.
[[nodiscard]] bool isLargeScale();
/// The tolerance for scales up to 1.0.
[[nodiscard]] double smallScaleTolerance();

/// Name of the block that an element refers to; empty when it is no block reference or can't be opened.
[[nodiscard]] std::wstring blockNameOf(AcDbObjectId element);

} // namespace zu
