#pragma once

#include "painters/shape_painter.h"
#include "painters/theme.h"
#include "plan/plan_elements.h"
#include "plan/plan_options.h"

#include <map>

namespace zu::app {

/// The colours of a plan.
class PlanInks {
public:
    PlanInks(const picture::Theme& theme, const PlanElements& elements, const PlanOptions& options,
             const AcDbDatabase& drawing);

    /// How a shape of the drawing is painted. `element` is the one it belongs to, null of none.
    [[nodiscard]] picture::Ink inkOf(const picture::Shape& shape, const PlanElement* element) const;
    /// The same for shapes of other drawings: the given colour.
    [[nodiscard]] picture::Ink inkOf(const QColor& given) const;
    [[nodiscard]] QColor ofElement(const PlanElement& element) const;
    [[nodiscard]] QColor kind(int linkKind) const;
    [[nodiscard]] QColor equipment() const;
    [[nodiscard]] QColor otherElements() const;
    [[nodiscard]] QColor highlight() const;
    [[nodiscard]] QColor finding() const;

private:
    const picture::Theme& theme_;
    std::map<int, QColor> kinds_;
    std::unordered_map<std::uint64_t, QColor> given_;
    bool ownColours_; ///< Nothing is emphasised: the drawing keeps its colours.
    double element_;  ///< Least width of the lines of elements.
};

} // namespace zu::app
