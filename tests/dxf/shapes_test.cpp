// Shapes of part drawings: curves, transforms, colours, limits.
#include "color_table.h"
#include "dxf_records.h"
#include "part_files.h"
#include "part_picture.h"
#include "part_shapes.h"
#include "plain_text.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace zu::preview {
namespace {

using test::PartFile;

/// Text outlines need the fonts of an application.
void startGraphics() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 0;
    static const QGuiApplication application(count, nullptr);
}

/// Layers A (red, heavy) and OFF; block B with base (1, 1): a line on layer 0 coloured by block, a circle on
/// layer A coloured by layer; block SELF, which refers to itself.
const std::string kStart =
    dxfRecords("0 SECTION|2 TABLES|0 TABLE|2 LAYER|0 LAYER|2 A|62 1|370 70|0 LAYER|2 OFF|62 -3|0 ENDTAB|0 "
               "ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|2 B|10 1|20 1|0 LINE|8 0|62 0|10 1|20 1|11 3|21 1|0 "
               "CIRCLE|8 A|10 2|20 1|40 1|0 ENDBLK|0 BLOCK|2 SELF|0 LINE|11 1|0 INSERT|2 SELF|10 1|0 "
               "INSERT|2 SELF|20 1|0 ENDBLK|0 ENDSEC|0 SECTION|2 ENTITIES");

bool drawEach(std::string_view records, const std::function<void(const Shape&)>& draw) {
    const PartFile file(kStart + dxfRecords(records) + dxfRecords("0 ENDSEC|0 EOF"));
    return forEachShape(CAcadDxf(file.path(), CAcadDxf::kWhite), draw);
}

std::vector<Shape> shapesIn(std::string_view records) {
    std::vector<Shape> shapes;
    EXPECT_TRUE(drawEach(records, [&](const Shape& shape) { shapes.push_back(shape); }));
    return shapes;
}

void expectBox(const QPainterPath& path, double left, double bottom, double right, double top) {
    const QRectF box = path.boundingRect();
    EXPECT_NEAR(box.left(), left, 1e-3);
    EXPECT_NEAR(box.top(), bottom, 1e-3);
    EXPECT_NEAR(box.right(), right, 1e-3);
    EXPECT_NEAR(box.bottom(), top, 1e-3);
}

TEST(Shapes, BoxesOfCurves) {
    const std::pair<const char*, std::array<double, 4>> cases[] = {
        // A sweep through 0 degrees, and a quarter that starts there.
        {"0 ARC|40 2|50 270|51 90", {0, -2, 2, 2}},
        {"0 ARC|40 2|50 0|51 90", {0, 0, 2, 2}},
        // Seen from below: mirrored about the y axis.
        {"0 ARC|40 2|50 0|51 90|230 -1", {-2, 0, 0, 2}},
        // Half circles to the right (1) and to the left (-1) of the direction, and a straight segment.
        {"0 LWPOLYLINE|10 0|20 0|42 1|10 4|20 0", {0, -2, 4, 0}},
        {"0 LWPOLYLINE|10 0|20 0|42 -1|10 4|20 0", {0, 0, 4, 2}},
        {"0 LWPOLYLINE|70 1|10 0|20 0|10 4|20 0|42 1", {0, 0, 4, 2}},
        {"0 POLYLINE|0 VERTEX|10 1|0 VERTEX|10 5|20 2|0 SEQEND", {1, 0, 5, 2}},
        // The first half of an ellipse whose major axis points up is its left half.
        {"0 ELLIPSE|11 0|21 4|40 0.5|41 0|42 3.14159265358979", {-2, -4, 0, 4}},
    };
    for (const auto& [records, box] : cases) {
        const std::vector<Shape> shapes = shapesIn(records);
        ASSERT_EQ(shapes.size(), 1U);
        expectBox(shapes[0].path, box[0], box[1], box[2], box[3]);
    }
}

TEST(Shapes, WideSegmentsAreFilled) {
    const std::pair<const char*, std::array<double, 4>> cases[] = {
        {"0 LWPOLYLINE|43 2|10 0|20 0|10 4|20 0", {0, -1, 4, 1}},
        // Only the second segment is wide; it narrows upwards.
        {"0 LWPOLYLINE|10 0|20 0|10 4|20 0|40 2|41 1|10 4|20 3", {3, 0, 5, 3}},
        // A half circle to the right of the direction, which widens.
        {"0 LWPOLYLINE|10 0|20 0|40 0|41 2|42 1|10 4|20 0", {-0.0245, -2.52, 5, 0}},
        // A closed polyline with default widths, and a vertex with its own.
        {"0 POLYLINE|40 2|41 2|70 1|0 VERTEX|40 0|41 0|10 0|20 -9|0 VERTEX|10 0|20 0|0 VERTEX|10 0|20 0|0 "
         "SEQEND",
         {-1, -9, 1, 0}},
    };
    for (const auto& [records, box] : cases) {
        const std::vector<Shape> shapes = shapesIn(records);
        ASSERT_EQ(shapes.size(), 2U);
        EXPECT_EQ(shapes[1].kind, ShapeKind::fill);
        expectBox(shapes[1].path, box[0], box[1], box[2], box[3]);
    }
    // Overlapping segments leave no hole.
    const auto corner = shapesIn("0 LWPOLYLINE|43 2|10 0|20 0|10 4|20 0|10 4|20 4");
    EXPECT_TRUE(corner.at(1).path.contains(QPointF(3.5, 0.5)));
}

TEST(Shapes, ReferencesPlaceTheirBlocks) {
    const auto mirrored = shapesIn("0 INSERT|2 b|10 10|20 20|41 -2|50 90");
    ASSERT_EQ(mirrored.size(), 2U);
    // The line of length two to the right of the base: mirrored to the left, doubled, rotated to point down.
    expectBox(mirrored[0].path, 10, 16, 10, 20);

    const auto grid = shapesIn("0 INSERT|2 B|70 3|71 2|44 10|45 -5");
    ASSERT_EQ(grid.size(), 12U);
    expectBox(grid[4].path, 20, 0, 22, 0);
    expectBox(grid[10].path, 20, -5, 22, -5);
}

TEST(Shapes, ColoursAndWeightsByLayerAndBlock) {
    const auto shapes = shapesIn("0 INSERT|2 B|8 A|62 4|370 13|0 LINE|8 A|11 1|0 LINE|8 none|62 256|11 1|0 "
                                 "LINE|8 OFF|11 1|0 LINE|67 1|11 1");
    ASSERT_EQ(shapes.size(), 4U);
    EXPECT_EQ(shapes[0].color, 4);       // by block
    EXPECT_EQ(shapes[1].color, 1);       // by layer
    EXPECT_EQ(shapes[0].lineWeight, 70); // layer 0 in a block is the reference's layer
    EXPECT_EQ(shapes[2].color, 1);
    EXPECT_EQ(shapes[2].lineWeight, 70);
    EXPECT_EQ(shapes[3].color, 7);
    EXPECT_EQ(shapes[3].lineWeight, 25);
}

TEST(Shapes, ExcessiveDrawingsAreRejected) {
    EXPECT_LT(shapesIn("0 INSERT|2 SELF").size(), 200001U);
    const auto nothing = [](const Shape&) {};
    EXPECT_FALSE(drawEach("0 INSERT|2 B|70 2000000000|71 2000000000|44 1", nothing));
    EXPECT_EQ(shapesIn("0 INSERT|2 missing|70 32767|71 32767").size(), 0U);
    EXPECT_EQ(shapesIn("0 CIRCLE|40 1e300|0 LINE|10 1e200").size(), 0U);
    // A long polyline in a very large array.
    std::string bytes = dxfRecords("0 SECTION|2 BLOCKS|0 BLOCK|2 LONG|0 LWPOLYLINE");
    for (int i = 0; i < 10000; ++i)
        bytes += i % 2 == 0 ? "10\n0\n20\n0\n" : "10\n1\n20\n0\n";
    const PartFile file(bytes + dxfRecords("0 ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|2 LONG|70 300|71 300"));
    EXPECT_FALSE(forEachShape(CAcadDxf(file.path()), nothing));
    EXPECT_TRUE(pictureOf(CAcadDxf(file.path()), {.size = {40, 30}}).isNull());
}

TEST(Shapes, TextsRunBackwardAndUpsideDown) {
    startGraphics();
    const auto boxOf = [](const char* generation) {
        const auto shapes = shapesIn(std::string("0 TEXT|1 HE|40 10|71 ") + generation);
        return shapes.empty() ? QRectF() : shapes[0].path.boundingRect();
    };
    const QRectF plain = boxOf("0");
    ASSERT_GT(plain.center().x(), 1);
    ASSERT_GT(plain.center().y(), 1);
    EXPECT_NEAR(boxOf("2").center().x(), -plain.center().x(), 1e-6);
    EXPECT_NEAR(boxOf("2").center().y(), plain.center().y(), 1e-6);
    EXPECT_NEAR(boxOf("6").center().x(), -plain.center().x(), 1e-6);
    EXPECT_NEAR(boxOf("4").center().y(), -plain.center().y(), 1e-6);
}

TEST(Shapes, TextWithoutFormatCodes) {
    EXPECT_EQ(plainText(L"%%c50 %%P0.5 90%%d 5%%% %%uA%%q"), QStringLiteral("⌀50 ±0.5 90° 5% A%%q"));
    EXPECT_EQ(plainLines(L"{\\fIPA|b0;a\\H1.5x;}\\Pb\\~c \\S1^2; \\\\ \\{x\\} \\z\\H"),
              QStringList({"a", QString("b") + QChar::Nbsp + "c 1/2 \\ {x} \\z"}));
}

TEST(Shapes, PictureShowsTheDrawing) {
    startGraphics();
    const CAcadDxf part(test::hostPath(test::sample("equip-fan.dxf")));
    for (const bool dark : {false, true}) {
        const QImage image = pictureOf(part, {.size = {400, 300}, .dark = dark});
        const QColor background = image.pixelColor(1, 1);
        EXPECT_EQ(background.lightness() < 128, dark);
        // The outline (1200 by 600) fills the width, centred in the picture.
        const double scale = (400 - 2 * 12) / 1200.0;
        const QColor edge = image.pixelColor(200 - static_cast<int>(600 * scale), 150);
        EXPECT_NE(edge, background);
        EXPECT_EQ(image.pixelColor(200, 150 - static_cast<int>(300 * scale) - 8), background);
        // The blue spoke points down and to the left.
        const QColor spoke =
            image.pixelColor(200 - static_cast<int>(45 * scale), 150 + static_cast<int>(78 * scale));
        EXPECT_GT(spoke.blue(), spoke.red());
    }
    // A single point far from the origin is drawn in the middle.
    const PartFile point(dxfRecords("0 SECTION|2 ENTITIES|0 POINT|10 -5000.3|20 2e6"));
    const QImage dot = pictureOf(CAcadDxf(point.path()), {.size = {40, 30}});
    EXPECT_NE(dot.pixelColor(20, 15), dot.pixelColor(1, 1));
    EXPECT_EQ(dot.pixelColor(1, 1), QColor(Qt::white));
    const QImage nothing = pictureOf(CAcadDxf(L"no such.dxf"), {.size = {40, 30}});
    EXPECT_EQ(nothing.size(), QSize(40, 30));
}

} // namespace
} // namespace zu::preview
