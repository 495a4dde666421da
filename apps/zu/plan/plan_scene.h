#pragma once

#include "model/drawing_file.h"

#include <gepnt2d.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zu::app {

/// What a stroke or text of the plan belongs to, which decides its colour. Other values are route kinds.
enum class PlanRole : int { background = -3, equipment = -2, kindUnknown = -1 };

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

/// Receives what a plan shows. Positions are world coordinates, none farther than 1e12 from an axis.
class PlanCanvas {
public:
    virtual ~PlanCanvas() = default;
    /// A polyline; circles and arcs come as short chords. The points last as long as the call.
    virtual void addStroke(std::span<const AcGePoint2d> points, PlanRole role) = 0;
    virtual void addText(const PlanText& text) = 0;
};

/// The plan of a drawing's model space. Block references can multiply what it shows beyond any memory, so
/// that it is never held as a whole but produced anew for each canvas.
class PlanScene {
public:
    /// Keeps no reference to `drawing`, which has to stay open.
    explicit PlanScene(DrawingFile& drawing);

    /// Produces strokes and texts in the order of the drawing, the same ones each time. Throws Failure when
    /// they hold more than `most` points, with an entity counted as ten and a letter as twenty.
    void show(PlanCanvas& canvas, std::uint64_t most) const;
    /// The connection points of all elements.
    [[nodiscard]] std::vector<PlanJoint> findJoints() const;

    struct Item {
        AcDbObjectId id;
        PlanRole role = PlanRole::background;
        std::optional<std::size_t> equipment; ///< Which one.
    };
    struct Equipment {
        std::string name;
        double connectionY = 0.0; ///< The mean of its connection points.
        bool hasConnections = false;
    };

private:
    std::vector<Item> items_;
    std::vector<Equipment> equipment_;
    std::vector<AcDbObjectId> elements_;
};

} // namespace zu::app
