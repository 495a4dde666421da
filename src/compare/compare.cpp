#include "differences.h"

zucomn::DrawingDifferences zucomn::compareDrawings(const ComparedDrawing& before,
                                                   const ComparedDrawing& after) {
    DrawingDifferences differences;
    zu::EntityPairs pairs;
    const auto elements = zu::compareElements(before, after, pairs, differences);
    zu::compareOthers(before, after, elements, pairs, differences);
    zu::compareGroups(before.drawing, after.drawing, pairs, differences);
    zu::compareJoints(before.drawing, after.drawing, pairs, differences);
    return differences;
}
