#include "shapes/builders.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zu::picture {

namespace {

constexpr std::array kBuilders{
    std::pair{std::string_view("3DFACE"), &buildFace},
    std::pair{std::string_view("ACAD_TABLE"), &buildTable},
    std::pair{std::string_view("ARC"), &buildArc},
    std::pair{std::string_view("ARC_DIMENSION"), &buildDimension},
    std::pair{std::string_view("ATTDEF"), &buildDefinition},
    std::pair{std::string_view("ATTRIB"), &buildAttribute},
    std::pair{std::string_view("CIRCLE"), &buildCircle},
    std::pair{std::string_view("DIMENSION"), &buildDimension},
    std::pair{std::string_view("DGNUNDERLAY"), &buildUnderlay},
    std::pair{std::string_view("DWFUNDERLAY"), &buildUnderlay},
    std::pair{std::string_view("ELLIPSE"), &buildEllipse},
    std::pair{std::string_view("HATCH"), &buildHatch},
    std::pair{std::string_view("HELIX"), &buildSpline},
    std::pair{std::string_view("IMAGE"), &buildImage},
    std::pair{std::string_view("INSERT"), &buildReference},
    std::pair{std::string_view("LARGE_RADIAL_DIMENSION"), &buildDimension},
    std::pair{std::string_view("LEADER"), &buildLeader},
    std::pair{std::string_view("LINE"), &buildLine},
    std::pair{std::string_view("3DLINE"), &buildLine},
    std::pair{std::string_view("LWPOLYLINE"), &buildLightPolyline},
    std::pair{std::string_view("MESH"), &buildMesh},
    std::pair{std::string_view("MLEADER"), &buildMultileader},
    std::pair{std::string_view("MLINE"), &buildMultiline},
    std::pair{std::string_view("MPOLYGON"), &buildHatch},
    std::pair{std::string_view("MTEXT"), &buildParagraph},
    std::pair{std::string_view("MULTILEADER"), &buildMultileader},
    std::pair{std::string_view("PDFUNDERLAY"), &buildUnderlay},
    std::pair{std::string_view("PLINE"), &buildPolyline},
    std::pair{std::string_view("POINT"), &buildPoint},
    std::pair{std::string_view("POLYLINE"), &buildPolyline},
    std::pair{std::string_view("RAY"), &buildInfiniteLine},
    std::pair{std::string_view("SHAPE"), &buildShapeFile},
    std::pair{std::string_view("SOLID"), &buildSolid},
    std::pair{std::string_view("SPLINE"), &buildSpline},
    std::pair{std::string_view("TEXT"), &buildText},
    std::pair{std::string_view("TOLERANCE"), &buildTolerance},
    std::pair{std::string_view("TRACE"), &buildSolid},
    std::pair{std::string_view("VIEWPORT"), &buildViewport},
    std::pair{std::string_view("WIPEOUT"), &buildImage},
    std::pair{std::string_view("XLINE"), &buildInfiniteLine},
};

} // namespace

Builder builderOf(std::string_view type) {
    const auto found = std::find_if(kBuilders.begin(), kBuilders.end(),
                                    [&](const auto& entry) { return entry.first == type; });
    return found == kBuilders.end() ? nullptr : found->second;
}

} // namespace zu::picture
