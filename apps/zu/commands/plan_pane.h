#pragma once

#include <QImage>
#include <QTimer>
#include <QTransform>
#include <QWidget>

#include <dbid.h>
#include <gepnt2d.h>

#include <functional>
#include <unordered_set>
#include <vector>

class AcDbDatabase;

namespace zu::app {

/// A small plan of a drawing that marks elements; a click selects the nearest one.
class PlanPane : public QWidget {
public:
    using Select = std::function<void(AcDbObjectId element)>;

    /// Drawings with more block references are too much to draw while a user waits.
    static constexpr std::size_t kMostElements = 20'000;

    /// Keeps a reference to the drawing, which has to stay open.
    PlanPane(AcDbDatabase& drawing, Select select);

    /// Marks these elements and no others.
    void mark(std::unordered_set<AcDbObjectId> elements);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    /// Where an element is: its connection points, else its origin.
    struct Place {
        AcDbObjectId id;
        std::vector<AcGePoint2d> points;
    };

    void draw();
    [[nodiscard]] QPointF onPane(const AcGePoint2d& point) const;
    [[nodiscard]] double distance(const Place& place, const QPointF& point) const;

    AcDbDatabase& drawing_;
    Select select_;
    std::vector<Place> places_;
    std::unordered_set<AcDbObjectId> marked_;
    QImage plan_;
    QTransform toPane_; ///< From world coordinates.
    QTimer redraw_;     ///< Draws the plan anew when the user has finished changing the size.
};

} // namespace zu::app
