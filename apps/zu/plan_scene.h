#pragma once

#include "drawing_file.h"

#include <gepnt2d.h>

#include <string>
#include <vector>

namespace zu::app {

/// What a stroke or text of the plan belongs to, which decides its colour.
enum class PlanRole { background, equipment, kindUnknown, kind1, kind2, kind3, kind4 };

struct PlanStroke {
    std::vector<AcGePoint2d> points; ///< World coordinates; circles and arcs as short chords.
    PlanRole role = PlanRole::background;
};

/// Where a text lies about its position.
enum class PlanAnchor { bottomLeft, middle, above, below };

struct PlanText {
    std::string text;
    AcGePoint2d position;
    double height = 0.0;   ///< 0: as small as can be read.
    double rotation = 0.0; ///< Radians.
    bool mirrored = false; ///< It lies on the other side of its base line.
    PlanAnchor anchor = PlanAnchor::bottomLeft;
    PlanRole role = PlanRole::background;
};

/// A connection point; a joined one meets one of another element.
struct PlanJoint {
    AcGePoint2d position;
    bool joined = false;
};

/// The plan of a drawing's model space, ready to be drawn.
struct PlanScene {
    std::vector<PlanStroke> strokes;
    std::vector<PlanText> texts;
    std::vector<PlanJoint> joints;
};

[[nodiscard]] PlanScene makePlanScene(DrawingFile& drawing);

} // namespace zu::app
