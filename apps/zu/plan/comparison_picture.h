#pragma once

#include <zucomn/model/compare.h>

#include <string>

class AcDbDatabase;

namespace zu::app {

/// Draws the plan of the second drawing with what the first one had besides into a PNG, SVG or PDF file:
/// removed things red, added ones green, changed ones amber, the rest in the subdued colours of a background.
/// Both drawings have to be open. Throws as savePlan does.
void saveComparison(AcDbDatabase& after, const zucomn::DrawingDifferences& differences,
                    const std::string& file);

} // namespace zu::app
