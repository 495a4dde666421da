#pragma once

#include "plan/plan_options.h"

#include <QByteArray>
#include <QImage>
#include <QTransform>

#include <map>
#include <memory>
#include <string>
#include <vector>

class AcDbDatabase;

namespace zu::app {

/// Entities of one type that a plan does not show for one reason.
struct PlanOmission {
    std::string type;
    std::size_t count = 0;
    std::string why;
};

/// What a plan shows and what it leaves out.
struct PlanReport {
    std::map<std::string, std::size_t> drawn; ///< Entities by type.
    std::vector<PlanOmission> notDrawn;
    std::vector<std::string> remarks; ///< Each a sentence: an empty model space, outliers, hidden elements.
    std::size_t joined = 0;           ///< Connection points in sight that meet another element.
    std::size_t dangling = 0;
};

/// The plan of a drawing: routes coloured by link kind, other things in subdued colours, joined connection
/// points marked by dots and dangling ones by rings, with a legend. The shapes are produced anew for each
/// picture and never held as a whole.
class PlanPicture {
public:
    /// Reads the drawing as it is now; keeps no reference to it. Creates the application object that fonts
    /// need when there is none. Throws Failure when there is no such layout, and when the drawing has more to
    /// draw than memory and patience hold.
    PlanPicture(AcDbDatabase& drawing, PlanOptions options);
    ~PlanPicture();
    PlanPicture(PlanPicture&&) noexcept;
    PlanPicture& operator=(PlanPicture&&) noexcept;

    [[nodiscard]] PlanReport report() const;
    /// Pixels of 1/96 inch.
    [[nodiscard]] QSize size() const;
    /// From world coordinates to pixels of the picture, y downwards.
    [[nodiscard]] QTransform toPicture() const;

    /// Null when memory does not suffice.
    [[nodiscard]] QImage image() const;
    /// An SVG document, in UTF-8. It has no external references, so that it can be put into a page.
    [[nodiscard]] QByteArray svg() const;
    /// One page, to scale.
    [[nodiscard]] QByteArray pdf() const;

private:
    struct Data;
    std::unique_ptr<Data> data_;
};

/// Draws the plan into a PNG, SVG or PDF file, by its extension, and returns what it shows. Throws WrongUsage
/// for other extensions, Failure, the old file untouched, when the file can't be written.
PlanReport savePlan(AcDbDatabase& drawing, const std::string& file, const PlanOptions& options);

} // namespace zu::app
