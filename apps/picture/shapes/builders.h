#pragma once

#include "shapes/canvas.h"

namespace zu::picture {

// The builders of all types; builders.cpp maps types to them.

Outcome buildLine(Canvas& canvas, const Entity& entity);
Outcome buildInfiniteLine(Canvas& canvas, const Entity& entity);
Outcome buildPoint(Canvas& canvas, const Entity& entity);
Outcome buildSolid(Canvas& canvas, const Entity& entity);
Outcome buildFace(Canvas& canvas, const Entity& entity);
Outcome buildCircle(Canvas& canvas, const Entity& entity);
Outcome buildArc(Canvas& canvas, const Entity& entity);
Outcome buildEllipse(Canvas& canvas, const Entity& entity);
Outcome buildSpline(Canvas& canvas, const Entity& entity);
Outcome buildLightPolyline(Canvas& canvas, const Entity& entity);
Outcome buildPolyline(Canvas& canvas, const Entity& entity);
Outcome buildMesh(Canvas& canvas, const Entity& entity);
Outcome buildMultiline(Canvas& canvas, const Entity& entity);
Outcome buildHatch(Canvas& canvas, const Entity& entity);
Outcome buildText(Canvas& canvas, const Entity& entity);
Outcome buildAttribute(Canvas& canvas, const Entity& entity);
Outcome buildDefinition(Canvas& canvas, const Entity& entity);
Outcome buildParagraph(Canvas& canvas, const Entity& entity);
Outcome buildShapeFile(Canvas& canvas, const Entity& entity);
Outcome buildTolerance(Canvas& canvas, const Entity& entity);
Outcome buildReference(Canvas& canvas, const Entity& entity);
Outcome buildDimension(Canvas& canvas, const Entity& entity);
Outcome buildTable(Canvas& canvas, const Entity& entity);
Outcome buildLeader(Canvas& canvas, const Entity& entity);
Outcome buildMultileader(Canvas& canvas, const Entity& entity);
Outcome buildImage(Canvas& canvas, const Entity& entity);
Outcome buildUnderlay(Canvas& canvas, const Entity& entity);
Outcome buildViewport(Canvas& canvas, const Entity& entity);

/// Draws an attribute definition's text in a reference that holds the value.
Outcome drawValue(Canvas& canvas, const Entity& definition, const QString& value);

} // namespace zu::picture
