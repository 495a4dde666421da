#pragma once

#include "shape.h"

#include <QRectF>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zu::picture {

class Drawing;

struct SceneOptions {
    QString layout; ///< Name of a layout; empty for model space.
    /// Called with the handles of the entities of the space that is drawn, 0 for those without; false leaves
    /// one out. Empty shows all.
    std::function<bool(std::uint64_t handle)> shows;
    /// Called with a layer's name, also for entities in blocks; false hides the layer. Empty shows all.
    std::function<bool(const QString&)> showsLayer;
    /// Where infinite lines are cut; the extents of the scene when it is empty.
    QRectF frame;
    /// World size of what is too small to see in a picture, such as a pixel: smaller shapes come as short
    /// lines, one of a colour for each place. 0 for all shapes as they are.
    double resolution = 0.0;
    /// Points, letters, dashes and pattern lines that are produced at most: nested blocks multiply beyond any
    /// memory.
    std::uint64_t most = 20'000'000;
};

/// The reason of entities on layers that SceneOptions::showsLayer hides.
inline constexpr std::string_view kLayerFilteredOut = "its layer is filtered out";

/// Entities of one type that are not drawn for one reason.
struct NotDrawn {
    std::string type;
    std::size_t count = 0;
    std::string why;
};

/// What a scene consists of. Counts entities of the space that is drawn and of the blocks that it shows.
struct SceneReport {
    std::map<std::string, std::size_t> drawn; ///< By type.
    std::vector<NotDrawn> notDrawn;           ///< By type, then reason.
    bool isComplete = true;                   ///< False when the limit or the sink ended the production.
    bool isTooMuch = false;                   ///< The limit ended it.
};

/// Produces the shapes of model space or a layout, the same ones each time; they are never held as a whole.
/// Needs a QGuiApplication, for the fonts.
SceneReport produceShapes(const Drawing& drawing, const SceneOptions& options, const ShapeSink& sink);

/// An entity that is too far from all others to be in a picture with them.
struct Outlier {
    std::string type;
    std::uint64_t handle = 0;
    QRectF box;
};

/// The extents of a scene.
struct Extents {
    QRectF box; ///< Of what is drawn, without outliers; null when nothing is.
    bool isEmpty = true;
    std::vector<Outlier> outliers;
    SceneReport report;
};

/// Measures a scene. Text counts with its box, infinite lines do not count. An entity is an outlier when it
/// reaches farther from the bulk of the drawing than ten times the size of that; the bulk is what remains
/// when the lowest and highest 2 % of the entities' edges (at least one each) are set aside on both axes.
/// Drawings of fewer than five entities have none.
[[nodiscard]] Extents measureScene(const Drawing& drawing, const SceneOptions& options);

/// Returns the names of the layouts in tab order, without model space.
[[nodiscard]] std::vector<QString> layoutNames(const Drawing& drawing);

/// The sheet of paper that a layout is for.
struct Sheet {
    QSizeF size; ///< Millimetres.
    QRectF area; ///< What it shows, in units of paper space.
};

/// Returns the sheet of a layout as its page setup has it, turned and to its plot scale. Nullopt when the
/// layout has none in millimetres or inches, or is missing.
[[nodiscard]] std::optional<Sheet> sheetOf(const Drawing& drawing, const QString& layout);

} // namespace zu::picture
