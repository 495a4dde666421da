// Plans as other parts of the program draw them: with colours, marks and highlights of their own.
#include "painters/clipping.h"
#include "plan/label_placer.h"
#include "plan/plan_picture.h"

#include <dbmain.h>
#include <gtest/gtest.h>

#include <cmath>
#include <future>
#include <memory>

using namespace zu;

namespace {

class PlanPictureTest : public testing::Test {
protected:
    void SetUp() override {
        for (AcDbDatabase* drawing : {&drawing_, &other_})
            ASSERT_EQ(drawing->dxfIn(L"" ZU_SAMPLES "/drawings/office-floor.dxf"), Acad::eOk);
    }
    static AcDbObjectId find(AcDbDatabase& drawing, std::uint64_t handle) {
        AcDbObjectId id;
        EXPECT_EQ(drawing.getAcDbObjectId(id, false, AcDbHandle(handle)), Acad::eOk);
        return id;
    }
    static constexpr std::uint64_t kDuct = 0x110; ///< From (5700, 5000) to (7500, 5000).
    AcDbDatabase drawing_{false, true};
    AcDbDatabase other_{false, true};
};

} // namespace

TEST_F(PlanPictureTest, ShowsWhatACallerHasFound) {
    app::PlanOptions options;
    options.size = {900, 700};
    options.colours = {{find(drawing_, kDuct), QColor("#00695c")}, {find(other_, 0x112), QColor("#ad1457")}};
    options.others = {find(other_, 0x112)};
    options.legend = {{QColor("#00695c"), "changed <1>"}};
    options.markers = {{{6600, 5000}, "1", {}}, {{6600, 5000}, "2", {}}};
    const app::PlanPicture plan(drawing_, options);
    const QByteArray svg = plan.svg();
    for (const char* const shown : {"#00695c", "#ad1457", ">1</text>", ">2</text>", "changed &lt;1&gt;"})
        EXPECT_TRUE(svg.contains(shown)) << shown;
    EXPECT_FALSE(svg.contains("#1565c0")) << "colours of kinds would be mistaken for the caller's";

    options.highlighted = {find(drawing_, kDuct)};
    const QPointF inDuct = plan.toPicture().map(QPointF(6600, 5000));
    const QRect around = QRectF(inDuct - QPointF(4, 4), QSizeF(9, 9)).toRect();
    EXPECT_EQ(plan.image().size(), QSize(900, 700));
    EXPECT_NE(plan.image().copy(around), app::PlanPicture(drawing_, options).image().copy(around));
}

TEST_F(PlanPictureTest, IsPaintedByTwoThreadsOnceItsDrawingIsClosed) {
    auto drawing = std::make_unique<AcDbDatabase>(false, true);
    ASSERT_EQ(drawing->dxfIn(L"" ZU_SAMPLES "/drawings/office-floor.dxf"), Acad::eOk);
    app::PlanOptions options;
    options.labels = app::PlanLabelKind::names;
    const app::PlanPicture plan(*drawing, options);
    drawing.reset();
    std::future<QImage> other = std::async(std::launch::async, [&plan] { return plan.image(); });
    const QImage image = plan.image();
    EXPECT_EQ(image, other.get());
    options.labels = app::PlanLabelKind::none;
    EXPECT_NE(image, app::PlanPicture(drawing_, options).image()) << "there are no labels";
}

TEST(LabelPlacer, KeepsLabelsApartAndOffInk) {
    QImage ink(50, 50, QImage::Format_Grayscale8);
    ink.fill(0);
    for (int row = 0; row < 50; ++row)
        for (int column = 25; column < 50; ++column)
            ink.scanLine(row)[column] = 255;
    app::LabelPlacer placer(ink, 4.0, {0, 0, 200, 200});
    std::vector<QRectF> boxes;
    while (const auto place = placer.place({{30, 10}, {60, 100}, {2, 2}})) {
        EXPECT_LE(place->box.right(), 105) << "drawn over";
        for (const QRectF& other : boxes)
            EXPECT_FALSE(other.intersects(place->box));
        boxes.push_back(place->box);
    }
    EXPECT_GT(boxes.size(), 4U);
}

TEST(Clipping, KeepsWhatIsInside) {
    QPainterPath line(QPointF(-1e9, 5));
    line.lineTo(1e9, 5);
    EXPECT_EQ(picture::clippedLines(line, {0, 0, 10, 10}).boundingRect(), QRectF(0, 5, 10, 0));
    QPainterPath area;
    area.addRect({-1e9, -1e9, 1e9 + 4, 2e9});
    area.addRect({1, 1, 1, 1});
    const QPainterPath inside = picture::clippedArea(area, {0, 0, 10, 10});
    EXPECT_EQ(inside.boundingRect(), QRectF(0, 0, 4, 10));
    EXPECT_TRUE(inside.contains({3, 3}) && !inside.contains({1.5, 1.5}) && !inside.contains({5, 5}));
}
