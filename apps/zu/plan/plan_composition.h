#pragma once

#include "painters/page_canvas.h"
#include "painters/theme.h"
#include "plan/plan_elements.h"
#include "plan/plan_inks.h"
#include "plan/plan_labels.h"
#include "plan/plan_legend.h"
#include "plan/plan_names.h"
#include "plan/plan_page.h"
#include "plan/plan_picture.h"
#include "scene.h"

#include <future>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

namespace zu::app {

/// What a plan consists of and where it lies on its page.
class PlanComposition {
public:
    PlanComposition(AcDbDatabase& drawing, PlanOptions options);

    [[nodiscard]] PlanReport report() const;
    [[nodiscard]] const PlanPage& page() const { return page_; }
    [[nodiscard]] const PlanOptions& options() const { return options_; }
    [[nodiscard]] const picture::Theme& theme() const { return theme_; }
    void paint(picture::PageCanvas& canvas) const;

private:
    using Filter = std::function<bool(std::uint64_t handle)>;

    /// Another drawing of which some entities are drawn.
    struct Other {
        std::shared_ptr<const picture::Drawing> drawing;
        std::unordered_map<std::uint64_t, QColor> colours;
    };

    struct PlacedLabels {
        PlanLabels labels;
        std::size_t withoutRoom = 0;
    };

    // Widths of pictures.
    static constexpr double kSmallPicture = 360.0;
    static constexpr double kMiddlePicture = 800.0;

    [[noreturn]] static void throwTooMuch();
    [[nodiscard]] picture::SceneOptions scene(const Filter& filter) const;
    [[nodiscard]] bool isInPicture(std::uint64_t handle) const;
    [[nodiscard]] picture::Extents read(AcDbDatabase& drawing);
    void readElements(AcDbDatabase& drawing);
    void readOthers(AcDbDatabase& drawing);
    [[nodiscard]] QRectF worldOf(const picture::Extents& extents) const;
    void reportScene(const picture::Extents& extents);
    void makeLegend();
    [[nodiscard]] PlanPage makePage();
    void sizeMarks();
    void startLabels();
    [[nodiscard]] PlacedLabels placed(PlanLabels labels) const;
    [[nodiscard]] PlanLabels wantedLabels();
    void addEquipmentNames(PlanLabels& labels) const;
    void addDanglingLabels(PlanLabels& labels);
    void addElementLabels(PlanLabels& labels) const;
    [[nodiscard]] bool isInSight(const QPointF& onPage) const { return page_.plan.contains(onPage); }
    [[nodiscard]] QPointF onPage(const AcGePoint2d& point) const {
        return page_.toPage.map(QPointF(point.x, point.y));
    }

    [[nodiscard]] QRectF paintedArea() const;
    void paintDrawing(picture::PageCanvas& canvas) const;
    enum class Entities { all, elements, others };
    void paintEntities(picture::ShapePainter& painter, Entities which) const;
    void paintHighlights(picture::ShapePainter& painter) const;
    void paintOthers(picture::ShapePainter& painter) const;
    void paintMarks(picture::PageCanvas& canvas) const;
    void paintScale(picture::PageCanvas& canvas) const;

    PlanOptions options_;
    picture::Theme theme_;
    std::shared_ptr<const picture::Drawing> drawing_;
    std::vector<Other> others_;
    PlanElements elements_;
    std::optional<PlanInks> inks_; ///< Once the elements are known.
    std::unordered_set<std::uint64_t> highlighted_;
    std::unordered_set<std::uint64_t> labelled_; ///< Elements with their handle at a dangling point.
    QRectF world_;
    std::vector<KindName> kinds_; ///< For the legend.
    std::optional<PlanLegend> legend_;
    PlanPage page_;
    MarkSize marks_;
    double capitals_ = 8.0; ///< Height of the letters of labels.
    PlanReport report_;
    /// Placed by another thread while the drawing is painted. The last member: its destructor waits for that
    /// thread, which reads the others.
    std::shared_future<PlacedLabels> labels_;
};

} // namespace zu::app
