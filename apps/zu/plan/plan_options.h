#pragma once

#include <QColor>
#include <QRectF>
#include <QSize>
#include <QString>

#include <dbid.h>
#include <gepnt2d.h>

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zu::app {

enum class PlanTheme { light, dark };

/// What is written beside the elements of a plan.
enum class PlanLabelKind {
    automatic, ///< Names of equipment without a legible text, handles of elements that join nothing.
    none,
    handles, ///< Of every route element.
    names,   ///< The block's name without its element prefix.
    sizes    ///< The size attributes.
};

/// A numbered mark on a plan, drawn as a circle with a text in it, beside its position where others are.
struct PlanMarker {
    AcGePoint2d position;
    std::string text;
    QColor colour; ///< Invalid for the colour of findings.
};

/// A line of the legend for colours that a caller has given.
struct PlanLegendEntry {
    QColor colour;
    std::string text;
};

/// Paper of a standard size.
struct PlanPaper {
    std::string size;              ///< "A0" to "A4", "B1" to "B4"; empty: the smallest that suits.
    std::optional<bool> landscape; ///< Chosen by the proportions of the plan when it is not given.
    double scale = 0.0; ///< Drawing millimetres for one on paper; 0: the largest usual scale that fits.

    /// True when nothing is asked for: a layout then has its own sheet, at full size.
    [[nodiscard]] bool isDefault() const { return size.empty() && !landscape && scale <= 0.0; }
};

/// How a plan looks. Colours, markers and highlights are for what a caller has found; the rest are the
/// options of `zu plan`.
struct PlanOptions {
    PlanTheme theme = PlanTheme::light;
    /// Pixels; a side that is 0 follows the proportions of the plan.
    QSize size{1600, 0};
    std::optional<PlanPaper> paper; ///< Replaces `size`.
    std::optional<QRectF> window;   ///< World rectangle to show; all of the plan when it is not given.
    std::string layout;             ///< Name of a layout; empty for model space.
    PlanLabelKind labels = PlanLabelKind::automatic;
    bool hasLegend = true;
    std::vector<PlanLegendEntry> legend; ///< Replaces the entries of route kinds and elements.
    bool marksJoints = true;
    bool textAsOutlines = false; ///< SVG only: letters as areas, which look the same without the fonts.

    /// Called with the name of a layer, by two threads at the same time; false hides it. Empty shows all that
    /// are on.
    std::function<bool(const QString& layer)> showsLayer;
    /// Called with an element (a block reference with an element prefix); false leaves it out. Empty shows
    /// all.
    std::function<bool(AcDbObjectId element)> showsElement;

    std::unordered_map<AcDbObjectId, QColor> colours; ///< Replace the colours of entities of model space.
    /// Entities of the model space of another open drawing, drawn as well: what a change removed, for
    /// instance. Their colours are in `colours`.
    std::vector<AcDbObjectId> others;
    std::vector<PlanMarker> markers;
    std::unordered_set<AcDbObjectId> highlighted; ///< Drawn over all others, wide, with a glow.
};

} // namespace zu::app
