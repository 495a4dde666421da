#pragma once

#include "dbid.h"
#include "gepnt3d.h"

#include <string>
#include <vector>

class AcDbDatabase;

namespace zuhost {

/// Returns the entities of model space that are not erased, in drawing order; with `paperToo` also those of
/// the layouts.
[[nodiscard]] std::vector<AcDbObjectId> spaceEntities(const AcDbDatabase& drawing, bool paperToo);

/// Returns whether the entity's layer is neither off nor frozen; `offCounts` false ignores off.
[[nodiscard]] bool isShown(AcDbObjectId entity, bool offCounts = true);

/// Returns the shown entity drawn last that passes through the point or, of block references and texts,
/// surrounds it; null when there is none.
[[nodiscard]] AcDbObjectId entityAt(const AcDbDatabase& drawing, const AcGePoint3d& point);

/// Returns the entity that the expression (handent "2F") names; null for other texts and without such an
/// entity.
[[nodiscard]] AcDbObjectId entityOfExpression(const std::wstring& text);

} // namespace zuhost
