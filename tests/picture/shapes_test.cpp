// Shapes of drawings: every type, transforms, looks, texts, layouts, limits, extents.
#include "dxf_records.h"
#include "painters/dashes.h"
#include "painters/painter_canvas.h"
#include "painters/png_file.h"
#include "records/drawing.h"
#include "scene.h"
#include "shapes/paragraph_layout.h"
#include "text_outline.h"

#include <QGuiApplication>

#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace zu::picture {
namespace {

/// Layers A (red, heavy, dashed), OFF, FROZEN and UNPLOTTED; block B with base (1, 1): a line on layer 0
/// coloured by block, a circle on layer A coloured by layer; block SELF, which refers to itself; block ATTS
/// with a constant attribute and one that has a value in each reference.
/// Linetypes GAS, with a text every 8 units, and FENCE, with a shape; styles GRID and DOWN (vertical).
const std::string kStart = dxfRecords(
    "0 SECTION|2 TABLES|0 TABLE|2 LTYPE|0 LTYPE|2 DASHED|49 2|49 -1|0 LTYPE|2 GAS|49 5|74 0|49 -3|74 2|46 "
    "1|44 -2|45 0.5|9 GAS|0 LTYPE|2 FENCE|49 5|74 0|49 -3|74 4|0 ENDTAB|0 TABLE|2 LAYER|0 LAYER|2 A|62 "
    "1|370 70|"
    "6 dashed|0 LAYER|2 OFF|62 -3|0 LAYER|2 FROZEN|70 1|0 LAYER|2 UNPLOTTED|290 0|0 ENDTAB|0 TABLE|2 STYLE|"
    "0 STYLE|2 GRID|3 txt|4 bigfont|0 STYLE|2 DOWN|70 4|0 STYLE|2 AT|3 @msgothic.ttc|0 ENDTAB|0 ENDSEC|0 "
    "SECTION|2 BLOCKS|0 BLOCK|2 B|10 1|20 1|0 LINE|8 0|62 "
    "0|"
    "10 1|20 1|11 3|21 1|0 CIRCLE|8 A|10 2|20 1|40 1|0 ENDBLK|0 BLOCK|2 SELF|0 LINE|11 1|0 INSERT|2 SELF|10 "
    "1|"
    "0 ENDBLK|0 BLOCK|2 ATTS|0 ATTDEF|1 C|2 T|40 1|70 2|0 ATTDEF|1 D|2 T|40 1|0 ENDBLK|0 ENDSEC|"
    "0 SECTION|2 ENTITIES");

struct Scene {
    std::vector<Shape> shapes;
    SceneReport report;
};

Drawing drawingOf(std::string_view records, std::string_view header = "") {
    return Drawing(dxfRecords("0 SECTION|2 HEADER|9 $ACADVER|1 AC1021") +
                   (header.empty() ? "" : dxfRecords(header)) + dxfRecords("0 ENDSEC") + kStart +
                   dxfRecords(records) + dxfRecords("0 ENDSEC|0 EOF"));
}

void startFonts() {
    static int count = 0;
    static const QGuiApplication application(count, nullptr);
}

Scene sceneOf(const Drawing& drawing, const SceneOptions& options = {}) {
    startFonts();
    Scene scene;
    scene.report = produceShapes(drawing, options, [&](const Shape& shape) {
        scene.shapes.push_back(shape);
        return true;
    });
    return scene;
}

std::vector<Shape> shapesIn(std::string_view records, std::string_view header = "") {
    return sceneOf(drawingOf(records, header)).shapes;
}

QRectF boxOf(const Shape& shape) {
    return shape.kind == Shape::Kind::text ? outlineOf(shape.run).boundingRect() : shape.path.boundingRect();
}

void expectBox(const Shape& shape, const std::array<double, 4>& box, const char* records) {
    const QRectF found = boxOf(shape);
    EXPECT_NEAR(found.left(), box[0], 1e-2) << records;
    EXPECT_NEAR(found.top(), box[1], 1e-2) << records;
    EXPECT_NEAR(found.right(), box[2], 1e-2) << records;
    EXPECT_NEAR(found.bottom(), box[3], 1e-2) << records;
}

TEST(Shapes, BoxesOfTypes) {
    using Kind = Shape::Kind;
    struct Case {
        const char* records;
        Kind kind; ///< Of the first shape.
        std::array<double, 4> box;
    };
    const Case cases[] = {
        {"0 LINE|10 1|20 2|30 9|11 3|21 4|31 5", Kind::stroke, {1, 2, 3, 4}},
        // A sweep through 0 degrees, one of many turns, and one seen from below.
        {"0 ARC|40 2|50 270|51 90", Kind::stroke, {0, -2, 2, 2}},
        {"0 ARC|40 2|50 36000000|51 36000090", Kind::stroke, {0, 0, 2, 2}},
        {"0 ARC|40 2|50 0|51 90|230 -1", Kind::stroke, {-2, 0, 0, 2}},
        {"0 CIRCLE|10 5|40 1|210 0|220 1|230 0", Kind::stroke, {-6, 0, -4, 0}}, // seen from its side
        // Half circles to the right (1) and to the left (-1) of the direction, and one that closes.
        {"0 LWPOLYLINE|10 0|20 0|42 1|10 4|20 0", Kind::stroke, {0, -2, 4, 0}},
        {"0 LWPOLYLINE|10 0|20 0|42 -1|10 4|20 0", Kind::stroke, {0, 0, 4, 2}},
        {"0 LWPOLYLINE|70 1|10 0|20 0|10 4|20 0|42 1", Kind::stroke, {0, 0, 4, 2}},
        {"0 LWPOLYLINE|43 2|10 0|20 0|10 4|20 0", Kind::fill, {0, -1, 4, 1}},
        {"0 LWPOLYLINE|10 0|20 0|10 4|20 0|40 2|41 1|10 4|20 3", Kind::fill, {3, 0, 5, 3}},
        {"0 LWPOLYLINE|10 0|20 0|40 0|41 2|42 1|10 4|20 0", Kind::fill, {-0.0245, -2.52, 5, 0}},
        {"0 POLYLINE|0 VERTEX|10 1|0 VERTEX|10 5|20 2|0 SEQEND", Kind::stroke, {1, 0, 5, 2}},
        // The control point of a smoothed polyline does not show; a spatial one ignores heights.
        {"0 POLYLINE|70 4|0 VERTEX|10 1|70 8|0 VERTEX|10 9|70 16|0 VERTEX|10 2|70 8|0 SEQEND",
         Kind::stroke,
         {1, 0, 2, 0}},
        {"0 POLYLINE|70 8|0 VERTEX|10 1|30 7|0 VERTEX|10 5|20 2|0 SEQEND", Kind::stroke, {1, 0, 5, 2}},
        {"0 POLYLINE|70 16|71 2|72 2|0 VERTEX|10 1|0 VERTEX|10 2|0 VERTEX|20 5|0 VERTEX|20 6|0 SEQEND",
         Kind::stroke,
         {1, 0, 2, 0}},
        {"0 POLYLINE|70 64|0 VERTEX|70 192|10 1|0 VERTEX|70 192|10 2|20 3|0 VERTEX|70 128|71 1|72 -2|0 "
         "SEQEND",
         Kind::stroke,
         {1, 0, 2, 3}},
        {"0 MESH|92 3|10 0|20 0|10 4|20 0|10 0|20 5|93 4|90 3|90 0|90 1|90 2|94 0",
         Kind::stroke,
         {0, 0, 4, 5}},
        // The first half of an ellipse whose major axis points up is its left half.
        {"0 ELLIPSE|11 0|21 4|40 0.5|41 0|42 3.14159265358979", Kind::stroke, {-2, -4, 0, 4}},
        // A quarter circle as a rational curve; fit points alone.
        {"0 SPLINE|71 2|40 0|40 0|40 0|40 1|40 1|40 1|41 1|41 0.70710678|41 1|10 1|20 0|10 1|20 1|10 0|20 1",
         Kind::stroke,
         {0, 0, 1, 1}},
        {"0 SPLINE|11 0|21 0|11 5|21 5|11 10|21 0", Kind::stroke, {0, 0, 10, 5}},
        {"0 POINT|10 3|20 4", Kind::dot, {3, 4, 3, 4}},
        {"0 SOLID|10 0|20 0|11 4|21 0|12 0|22 3|13 4|23 3", Kind::fill, {0, 0, 4, 3}},
        {"0 TRACE|10 0|20 0|11 4|21 0|12 0|22 3", Kind::fill, {0, 0, 4, 3}},
        {"0 3DFACE|10 0|20 0|11 4|21 0|12 4|22 3|70 2", Kind::stroke, {0, 0, 4, 0}},
        {"0 LEADER|71 0|10 0|20 0|10 4|20 3", Kind::stroke, {0, 0, 4, 3}},
        {"0 MLINE|11 0|21 0|13 0|23 1|74 1|41 2|11 9|21 0|13 0|23 1|74 1|41 2", Kind::stroke, {0, 2, 9, 2}},
        {"0 WIPEOUT|10 2|11 4|12 0|22 6|13 1|23 1|14 -0.5|24 -0.5|14 0.5|24 -0.5|14 0.5|24 0.5",
         Kind::stroke,
         {2, 0, 6, 6}},
        {"0 HATCH|70 1|91 1|92 2|73 1|93 2|10 0|20 0|42 1|10 4|20 0|42 1|75 0", Kind::fill, {0, -2, 4, 2}},
        // Edges in any direction: the second runs backwards. A clockwise half circle.
        {"0 HATCH|70 1|91 1|92 1|93 3|72 1|10 0|20 0|11 4|21 0|72 1|10 0|20 3|11 4|21 0|72 1|10 0|20 3|11 "
         "0|21 0|97 0|75 0",
         Kind::fill,
         {0, 0, 4, 3}},
        {"0 HATCH|70 1|91 1|92 1|93 1|72 2|10 0|20 0|40 2|50 0|51 180|73 0|97 0|75 0",
         Kind::fill,
         {-2, -2, 2, 0}},
        // Horizontal lines with a distance of 2, cut by the triangle.
        {"0 HATCH|70 0|91 1|92 2|73 1|93 3|10 0|20 -1|10 8|20 -1|10 0|20 7|75 0|78 1|53 0|43 0|44 0|45 0|46 "
         "2",
         Kind::stroke,
         {0, 0, 7, 6}},
        {"0 ATTRIB|1 x|70 1|40 1|0 LINE|11 1", Kind::stroke, {0, 0, 1, 0}}, // an invisible attribute
    };
    for (const auto& [records, kind, box] : cases) {
        const std::vector<Shape> shapes = shapesIn(records);
        ASSERT_FALSE(shapes.empty()) << records;
        EXPECT_EQ(shapes[0].kind, kind) << records;
        expectBox(shapes[0], box, records);
    }
    // Overlapping wide segments leave no hole; an inner border does.
    EXPECT_TRUE(shapesIn("0 LWPOLYLINE|43 2|10 0|20 0|10 4|20 0|10 4|20 4").at(0).path.contains({3.5, 0.5}));
    EXPECT_FALSE(
        shapesIn(
            "0 HATCH|70 1|91 2|92 3|93 4|10 0|20 0|10 9|20 0|10 9|20 9|10 0|20 9|92 2|93 3|10 1|20 1|10 8|"
            "20 1|10 1|20 8|75 0")
            .at(0)
            .path.contains({2, 2}));
}

TEST(Shapes, PointsShowByTheModeOfTheDrawing) {
    const auto marked = [](const char* mode) { return shapesIn("0 POINT|10 5", mode); };
    EXPECT_TRUE(marked("9 $PDMODE|70 1").empty());
    expectBox(marked("9 $PDMODE|70 34|9 $PDSIZE|40 4").at(0), {1, -4, 9, 4}, "a cross in a circle");
    EXPECT_EQ(marked("9 $PDMODE|70 64|9 $PDSIZE|40 4").size(), 2U);
}

TEST(Shapes, InfiniteLinesEndAtTheFrame) {
    const char* const records = "0 CIRCLE|40 5|0 XLINE|10 0|20 1|11 1|21 0|0 RAY|10 2|11 0|21 -1";
    const std::vector<Shape> shapes = shapesIn(records);
    ASSERT_EQ(shapes.size(), 3U);
    expectBox(shapes[1], {-5, 1, 5, 1}, records);
    expectBox(shapes[2], {2, -5, 2, 0}, records);
}

TEST(Shapes, ReferencesPlaceTheirBlocks) {
    const auto mirrored = shapesIn("0 INSERT|2 b|10 10|20 20|41 -2|50 90");
    ASSERT_EQ(mirrored.size(), 2U);
    // The line of length two to the right of the base: mirrored to the left, doubled, rotated to point down.
    expectBox(mirrored[0], {10, 16, 10, 20}, "mirrored");
    expectBox(shapesIn("0 INSERT|2 B|10 10|230 -1").at(0), {-12, 0, -10, 0}, "from below");
    const auto grid = shapesIn("0 INSERT|2 B|70 3|71 2|44 10|45 -5");
    ASSERT_EQ(grid.size(), 12U);
    expectBox(grid[4], {20, 0, 22, 0}, "grid");
    expectBox(grid[10], {20, -5, 22, -5}, "grid");
    // A tilted block is produced in place: its circle is seen at an angle of 60 degrees.
    const auto tilted = shapesIn("0 INSERT|2 B|210 0|220 -0.866025403784|230 0.5");
    ASSERT_EQ(tilted.size(), 2U);
    EXPECT_NEAR(boxOf(tilted[1]).height(), 1.0, 1e-6);
    const auto attributes = shapesIn("0 INSERT|2 ATTS|66 1|0 ATTRIB|1 V|2 T|40 1|10 7|0 SEQEND");
    ASSERT_EQ(attributes.size(), 2U);
    EXPECT_EQ(attributes[0].run.text, "V");
    EXPECT_EQ(attributes[1].run.text, "C");
    // Blocks with the graphics of other entities, and one that is missing.
    EXPECT_EQ(shapesIn("0 DIMENSION|2 B|0 ACAD_TABLE|2 B|10 5").size(), 4U);
    EXPECT_EQ(sceneOf(drawingOf("0 DIMENSION|2 none")).report.notDrawn.at(0).type, "DIMENSION");
}

TEST(Shapes, LooksOfLayersAndBlocks) {
    const auto shapes =
        shapesIn("0 INSERT|2 B|8 A|62 4|370 13|0 LINE|8 A|11 1|48 3|0 LINE|8 none|62 256|11 1|6 dashed|0 "
                 "LINE|420 255|11 1|0 LINE|67 1|11 1",
                 "9 $LTSCALE|40 0.5");
    ASSERT_EQ(shapes.size(), 5U);
    EXPECT_EQ(shapes[0].colour.number, 4); // by block
    EXPECT_EQ(shapes[1].colour.number, 1); // by layer
    EXPECT_EQ(shapes[0].lineWeight, 70);   // layer 0 in a block is the reference's layer
    EXPECT_EQ(shapes[2].dashes, (std::vector<double>{3.0, -1.5}));
    EXPECT_EQ(shapes[3].colour, Colour());
    EXPECT_EQ(shapes[3].dashes, (std::vector<double>{1.0, -0.5}));
    EXPECT_EQ(shapes[4].colour.rgb, 0xFFU);
    EXPECT_EQ(shapes[4].lineWeight, 25);
}

TEST(Shapes, LinetypesRepeatTextsAlongLines) {
    // A line upwards of two patterns and a half, at half the scale: texts at 4 and 8, less 1 for their start.
    const auto shapes = shapesIn("0 LINE|6 gas|48 0.5|62 3|21 10", "9 $LTSCALE|40 1");
    ASSERT_EQ(shapes.size(), 3U);
    EXPECT_EQ(shapes[0].dashes, (std::vector<double>{2.5, -1.5}));
    for (const std::size_t i : {1U, 2U}) {
        EXPECT_EQ(shapes[i].run.text, "GAS");
        EXPECT_EQ(shapes[i].colour.number, 3);
        const QPointF start = shapes[i].run.place.map(QPointF(0, 0));
        EXPECT_NEAR(start.x(), -0.25, 1e-9);
        EXPECT_NEAR(start.y(), 4.0 * static_cast<double>(i) - 1.0, 1e-9);
        EXPECT_NEAR(shapes[i].run.place.map(QPointF(0, 1)).x(), start.x() - 0.5, 1e-9);
    }
    // Too many to be seen.
    EXPECT_EQ(shapesIn("0 LINE|6 GAS|11 1e9").size(), 1U);
}

TEST(Shapes, MultilinesHaveCapsGapsAndFill) {
    const std::string style = dxfRecords("0 SECTION|2 OBJECTS|0 MLINESTYLE|5 F1|2 S|70 1105|62 5|71 2|49 "
                                         "1|62 1|6 BYLAYER|49 -1|62 256|6 BYLAYER|0 ENDSEC|");
    const auto shapesOf = [&](const std::string& records) {
        return sceneOf(Drawing(kStart + dxfRecords(records) + dxfRecords("0 ENDSEC") + style)).shapes;
    };
    const std::string vertices = "|11 0|21 0|12 1|22 0|13 0|23 1|74 2|41 1|41 0|75 0|74 2|41 -1|41 0|75 0"
                                 "|11 9|21 0|12 1|22 0|13 0|23 1|74 2|41 1|41 0|75 0|74 2|41 -1|41 0|75 0";
    // Filled, with a square and a round start and a round end: an area with half circles, two lines, caps.
    const auto shapes = shapesOf("0 MLINE|340 F1|62 3|71 1" + vertices);
    ASSERT_EQ(shapes.size(), 6U);
    EXPECT_EQ(shapes[0].kind, Shape::Kind::fill);
    EXPECT_EQ(shapes[0].colour.number, 5);
    expectBox(shapes[0], {-1, -1, 10, 1}, "fill");
    EXPECT_EQ(shapes[1].colour.number, 1);
    EXPECT_EQ(shapes[2].colour.number, 3);
    expectBox(shapes[3], {0, -1, 0, 1}, "square cap");
    expectBox(shapes[4], {-1, -1, 0, 1}, "round start");
    expectBox(shapes[5], {9, -1, 10, 1}, "round end");
    EXPECT_EQ(shapesOf("0 MLINE|340 F1|71 13" + vertices).size(), 3U); // suppressed
    // A line that begins at 2, ends at 4 and begins again at 6.
    const auto cut = shapesIn("0 MLINE|11 0|12 1|13 0|23 1|74 4|41 1|41 2|41 4|41 6|75 0|11 9|12 1|13 0|23 "
                              "1|74 2|41 1|41 0|75 0");
    ASSERT_EQ(cut.size(), 2U);
    expectBox(cut[0], {2, 1, 4, 1}, "first piece");
    expectBox(cut[1], {6, 1, 9, 1}, "last piece");
}

TEST(Shapes, WhatIsNotDrawnIsReported) {
    const Scene scene = sceneOf(
        drawingOf("0 LINE|8 OFF|0 LINE|8 off|0 LINE|8 FROZEN|0 LINE|8 UNPLOTTED|0 LINE|60 1|0 3DSOLID|0 "
                  "INSERT|2 none|0 CIRCLE|40 -1|0 SHAPE|0 LINE|11 1|0 INSERT|2 SELF|0 INSERT|2 SELF|10 9|"
                  "0 LINE|10 1e200|0 TEXT|40 1|1  |0 ARC|40 1|51 90|6 FENCE|0 MTEXT|40 1|1 x|72 3|0 "
                  "MTEXT|40 1|1 x|7 AT"));
    std::vector<std::string> found;
    for (const NotDrawn& left : scene.report.notDrawn)
        found.push_back(left.type + " " + std::to_string(left.count) + " " + left.why);
    EXPECT_EQ(found,
              (std::vector<std::string>{
                  "3DSOLID 1 pictures do not support its type",
                  "ARC 1 its linetype has shapes of a font that is not available: only its dashes are drawn",
                  "CIRCLE 1 its radius is not positive", "INSERT 1 its block contains itself",
                  "INSERT 1 its block is not in the drawing", "LINE 1 it is marked invisible",
                  "LINE 1 its coordinates are out of range", "LINE 1 its layer is frozen",
                  "LINE 1 its layer is not plotted", "LINE 2 its layer is off",
                  "MTEXT 1 its vertical lines are drawn horizontally",
                  "MTEXT 1 the letters of its @ font are drawn upright",
                  "SHAPE 1 its shape font is not available", "TEXT 1 it has no text"}));
    EXPECT_EQ(scene.report.drawn, (std::map<std::string, std::size_t>{{"INSERT", 2}, {"LINE", 2}}));
}

TEST(Shapes, TextsLieWhereTheyAreAligned) {
    const auto box = [](const std::string& records) {
        return boxOf(shapesIn("0 TEXT|1 HE|40 10" + records).at(0));
    };
    const QRectF plain = box("");
    EXPECT_NEAR(plain.height(), 10, 0.5);
    const double slack = plain.width() / 5; // letters do not fill their advance
    EXPECT_NEAR(box("|71 2").center().x(), -plain.center().x(), 1e-6);
    EXPECT_NEAR(box("|71 4").center().y(), -plain.center().y(), 1e-6);
    EXPECT_NEAR(box("|41 2").width(), 2 * plain.width(), 1e-6);
    EXPECT_GT(box("|51 30").right(), plain.right() + 3);
    EXPECT_NEAR(box("|50 90").center().x(), -plain.center().y(), 1e-6);
    EXPECT_NEAR(box("|72 4|11 0|21 0").center().y(), 0, 0.3);
    EXPECT_NEAR(box("|72 2|73 3|11 0|21 0").right(), 0, slack);
    EXPECT_NEAR(box("|72 2|73 3|11 0|21 0").bottom(), 0, 0.3);
    // Between two points: as wide as their distance; aligned texts keep their proportions.
    EXPECT_NEAR(box("|72 5|11 100|21 0").width(), 100, 20);
    EXPECT_NEAR(box("|72 5|11 100|21 0").height(), plain.height(), 1e-6);
    EXPECT_NEAR(box("|72 3|11 100|21 0").height() / box("|72 3|11 100|21 0").width(),
                plain.height() / plain.width(), 1e-6);
    const auto coded = shapesIn("0 TEXT|40 1|1 %%c50 %%P0.5 90%%d 5%%% %%uA%%u%%065");
    ASSERT_EQ(coded.size(), 2U); // with the line below A
    EXPECT_EQ(coded[1].run.text, QStringLiteral("⌀50 ±0.5 90° 5% AA"));
    // Full-width and half-width letters in columns.
    const auto width = [](const char* text) {
        return shapesIn(std::string("0 TEXT|40 1|7 GRID|1 ") + text).at(0).run.width;
    };
    EXPECT_NEAR(width("12345678"), width("漢字カナ"), 1e-9);
    // Vertical: below each other, from the place down or around it. A long vowel stands upright.
    const auto column = shapesIn("0 TEXT|40 10|7 DOWN|1 縦ー|10 50");
    ASSERT_EQ(column.size(), 2U);
    EXPECT_NEAR(boxOf(column[0]).center().x(), 50, 1);
    EXPECT_LT(boxOf(column[0]).bottom(), 0);
    EXPECT_LT(boxOf(column[1]).bottom(), boxOf(column[0]).top());
    EXPECT_GT(boxOf(column[1]).height(), 3 * boxOf(column[1]).width());
    EXPECT_NEAR(boxOf(shapesIn("0 TEXT|40 10|7 DOWN|1 H|72 4").at(0)).center().y(), 0, 0.3);
    // The letters of an @ font lie on their left side: upright in a line that runs down.
    const QRectF lying = boxOf(shapesIn("0 TEXT|40 10|7 AT|1 一").at(0));
    EXPECT_GT(lying.height(), 3 * lying.width());
}

TEST(Shapes, ParagraphsAreBrokenAndFormatted) {
    startFonts();
    const auto textsOf = [](const QString& text, double width) {
        Paragraphs paragraphs;
        paragraphs.text = text;
        paragraphs.width = width;
        QStringList runs;
        for (const PlacedRun& placed : layOut(paragraphs).runs)
            runs += placed.run.text.trimmed();
        return runs;
    };
    EXPECT_EQ(textsOf(QStringLiteral("{\\fIPA|b0;a\\H1.5x;}\\Pb\\~c \\S1^2; \\\\ \\{x\\} \\z"), 0),
              QStringList({"a", QString("b") + QChar::Nbsp + "c", "1", "2", "\\ {x} \\z"}));
    EXPECT_EQ(textsOf("one two three", 6), QStringList({"one two", "three"}));
    EXPECT_EQ(textsOf(QStringLiteral("長い文章"), 3).size(), 2);
    const auto colours = shapesIn("0 MTEXT|40 1|3 {\\C3;gr|1 een} {\\c255;red} \\Lline");
    ASSERT_EQ(colours.size(), 4U);
    EXPECT_EQ(colours[0].run.text, "green");
    EXPECT_EQ(colours[0].colour.number, 3);
    EXPECT_EQ(colours[1].colour.rgb, 0xFF0000U);
    EXPECT_EQ(colours[3].kind, Shape::Kind::stroke);
    // Bottom right and turned: the text lies on the left of the point, then above it.
    const QRectF box = boxOf(shapesIn("0 MTEXT|40 10|71 9|1 HE").at(0));
    EXPECT_NEAR(box.right(), 0, 2);
    EXPECT_NEAR(box.top(), 0, 1);
    const QRectF turned = boxOf(shapesIn("0 MTEXT|40 10|71 9|1 HE|11 0|21 -1").at(0));
    EXPECT_NEAR(turned.top(), 0, 2);
    EXPECT_NEAR(turned.left(), 0, 1);
}

TEST(Shapes, ParagraphsFlowThroughColumns) {
    const auto startsOf = [](const std::string& embedded) {
        std::vector<std::pair<double, double>> starts;
        for (const Shape& shape :
             shapesIn("0 MTEXT|40 1|41 9|1 a\\Pb\\Nc\\Pd\\Pe|101 Embedded Object|" + embedded))
            starts.emplace_back(std::round(shape.run.place.dx()), std::round(shape.run.place.dy() * 3) / 3);
        return starts;
    };
    constexpr double kNext = -8.0 / 3;
    using Starts = std::vector<std::pair<double, double>>;
    const auto expectStarts = [&](const std::string& embedded, const Starts& expected) {
        const Starts found = startsOf(embedded);
        ASSERT_EQ(found.size(), expected.size()) << embedded;
        for (std::size_t i = 0; i < found.size(); ++i) {
            EXPECT_EQ(found[i].first, expected[i].first) << embedded << ' ' << i;
            EXPECT_NEAR(found[i].second, expected[i].second, 1e-6) << embedded << ' ' << i;
        }
    };
    // Two lines a column, as many columns as needed; a break ends a column; the last of two takes the rest.
    expectStarts("71 2|73 1|41 3|44 9|45 1", {{0, -1}, {0, kNext}, {10, -1}, {10, kNext}, {20, -1}});
    expectStarts("71 1|72 2|41 3|44 9|45 1|74 1",
                 {{10, -1}, {10, kNext}, {0, -1}, {0, kNext}, {0, -13.0 / 3}});
    expectStarts("71 2|72 3|44 9|45 1|46 2|46 0|46 0",
                 {{0, -1}, {10, -1}, {20, -1}, {20, kNext}, {20, -13.0 / 3}});
}

TEST(Shapes, MultileadersHaveLinesAndANote) {
    const auto shapes = shapesIn(
        "0 MULTILEADER|300 CONTEXT_DATA{|41 2|140 1|290 1|304 note|12 20|22 5|302 LEADER{|10 15|20 5|11 1|21 "
        "0|40 2|304 LEADER_LINE{|10 0|20 0|305 }|303 }|301 }|170 1");
    ASSERT_EQ(shapes.size(), 4U);
    expectBox(shapes[0], {0, 0, 15, 5}, "line");
    EXPECT_EQ(shapes[1].kind, Shape::Kind::fill); // the arrow
    expectBox(shapes[2], {15, 5, 17, 5}, "dogleg");
    EXPECT_EQ(shapes[3].run.text, "note");
    // A block with the value of an attribute in the place of its definition.
    const auto tagged = sceneOf(Drawing(
        dxfRecords("0 SECTION|2 TABLES|0 TABLE|2 BLOCK_RECORD|0 BLOCK_RECORD|5 E|2 TAG|0 ENDTAB|0 ENDSEC|0 "
                   "SECTION|2 BLOCKS|0 BLOCK|2 TAG|10 1|0 CIRCLE|40 1|0 ATTDEF|5 D|10 3|20 1|40 2|1 ?|2 NO|0 "
                   "ENDBLK|0 ENDSEC|0 SECTION|2 ENTITIES|0 MULTILEADER|300 CONTEXT_DATA{|290 0|296 1|341 "
                   "E|15 10|25 0|16 2|26 2|36 2|301 }|170 1|330 D|177 1|44 1|302 A-1")));
    ASSERT_EQ(tagged.shapes.size(), 2U);
    expectBox(tagged.shapes[0], {6, -2, 10, 2}, "circle");
    EXPECT_EQ(tagged.shapes[1].run.text, "A-1");
    EXPECT_EQ(tagged.shapes[1].run.place.map(QPointF(0, 0)), QPointF(14, 2));
}

TEST(Painters, DashesHaveTheirLengthsAroundCorners) {
    QPainterPath path(QPointF(0, 0));
    path.lineTo(3, 0);
    path.lineTo(3, 9);
    const QPainterPath dashes = dashed(path, std::vector<double>{4, 2, 1, 0.5});
    // A dash around the corner, a short one, the first again; it ends with the line.
    ASSERT_EQ(dashes.elementCount(), 7);
    EXPECT_EQ(QPointF(dashes.elementAt(2)), QPointF(3, 1));
    EXPECT_EQ(QPointF(dashes.elementAt(3)), QPointF(3, 3));
    EXPECT_EQ(QPointF(dashes.elementAt(4)), QPointF(3, 4));
    EXPECT_EQ(QPointF(dashes.elementAt(5)), QPointF(3, 4.5));
    EXPECT_EQ(QPointF(dashes.elementAt(6)), QPointF(3, 8.5));
}

TEST(Painters, PngKeepsEveryPixel) {
    // Of one colour, as many as a palette has, one more.
    for (const int colours : {1, 256, 257}) {
        QImage picture(31, 17, QImage::Format_RGB32);
        for (int i = 0; i < picture.width() * picture.height(); ++i)
            picture.setPixel(i % picture.width(), i / picture.width(),
                             0xFF000000U | static_cast<QRgb>(i % colours * 40503));
        const QByteArray file = pngOf(picture);
        EXPECT_EQ(QImage::fromData(file).convertToFormat(QImage::Format_RGB32), picture) << colours;
        EXPECT_EQ(file.contains("PLTE"), colours <= 256);
    }
    EXPECT_TRUE(pngOf({}).isEmpty());
}

TEST(Shapes, LayoutsShowModelSpaceInViewports) {
    const Drawing drawing(dxfRecords("0 SECTION|2 TABLES|0 TABLE|2 BLOCK_RECORD|0 BLOCK_RECORD|5 F|2 "
                                     "*Paper_Space|0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|"
                                     "0 BLOCK|2 *Paper_Space|0 ENDBLK|0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE|5 "
                                     "A|11 8|0 VIEWPORT|67 1|5 B|10 100|20 50|40 "
                                     "20|41 10|12 4|22 0|45 5|69 2|51 90|0 ENDSEC|0 SECTION|2 OBJECTS|0 "
                                     "LAYOUT|100 AcDbLayout|1 Plan|71 1|330 F|0 ENDSEC"));
    EXPECT_EQ(layoutNames(drawing), std::vector<QString>{"Plan"});
    SceneOptions options;
    options.layout = "plan";
    const Scene scene = sceneOf(drawing, options);
    ASSERT_EQ(scene.shapes.size(), 2U);
    expectBox(scene.shapes[0], {90, 45, 110, 55}, "frame");
    // Scale 2, turned by a quarter, the middle of the view at x = 4.
    expectBox(scene.shapes[1], {92, 50, 92, 66}, "line");
    EXPECT_EQ(scene.shapes[1].clip, QRectF(90, 45, 20, 10));
    EXPECT_EQ(scene.shapes[1].source, 0xBU);
}

TEST(Shapes, ExcessiveDrawingsAreRejected) {
    std::string bytes = dxfRecords("0 SECTION|2 BLOCKS|0 BLOCK|2 LONG|0 LWPOLYLINE");
    for (int i = 0; i < 10000; ++i)
        bytes += i % 2 == 0 ? "10\n0\n20\n0\n" : "10\n1\n20\n0\n";
    bytes += dxfRecords("0 BLOCK|2 B0|0 LINE|11 1");
    for (int i = 1; i < 30; ++i)
        for (int k = 0; k < 8; ++k)
            bytes += (k == 0 ? dxfRecords("0 BLOCK|2 B" + std::to_string(i)) : "") +
                     dxfRecords("0 INSERT|2 B" + std::to_string(i - 1));
    bytes += dxfRecords("0 ENDSEC|0 SECTION|2 ENTITIES");
    const char* const square =
        "91 1|92 2|93 4|10 0|20 0|10 9|20 0|10 9|20 9|10 0|20 9|75 0|78 1|53 0|43 0|44 0|45 0|46 ";
    const std::pair<std::string, bool> cases[] = {
        {"0 INSERT|2 LONG|70 2000000000|71 2000000000|44 1", true},
        {"0 INSERT|2 none|70 32767|71 32767", false},
        {"0 INSERT|2 B29", true},
        {std::string("0 HATCH|70 0|") + square + "1e-9", false},                   // too dense: its border
        {std::string("0 HATCH|70 0|") + square + "0.001|49 1e-7|49 -1e-7", false}, // dashes too fine: lines
        {"0 CIRCLE|40 1e300|0 LINE|10 1e200|0 ARC|40 1|50 1e300|51 -1e308|0 POINT|10 nan", false},
    };
    for (const auto& [records, isTooMuch] : cases) {
        const Drawing drawing(bytes + dxfRecords(records));
        std::uint64_t elements = 0;
        const SceneReport report = produceShapes(drawing, {}, [&](const Shape& shape) {
            elements += static_cast<std::uint64_t>(shape.path.elementCount());
            return true;
        });
        EXPECT_EQ(report.isTooMuch, isTooMuch) << records;
        EXPECT_LE(elements, SceneOptions().most) << records;
    }
}

TEST(Shapes, SmallShapesBecomeSpecks) {
    SceneOptions options;
    options.resolution = 1;
    const Scene scene =
        sceneOf(drawingOf("0 INSERT|2 B|70 100|44 0.001|41 0.01|42 0.01|0 LINE|11 50"), options);
    ASSERT_LE(scene.shapes.size(), 4U);
    expectBox(scene.shapes.back(), {0, 0, 50, 0}, "line");
}

/// Very many circles are copied to a quarter of a pixel; fewer are drawn where they are.
TEST(Painters, CopiedCirclesLookLikeDrawnOnes) {
    constexpr int kSide = 75;
    constexpr double kStep = 9.13;
    constexpr int kPixels = 700;
    std::vector<QPointF> places;
    for (int i = 0; i < kSide * kSide; ++i)
        places.emplace_back(8.0 + kStep * (i % kSide), 8.0 + kStep * (i / kSide));
    const Circle circle{3.5, Qt::yellow, {Qt::black, 1.4, {}}};
    const auto painted = [&](std::size_t atOnce) {
        QImage image(kPixels, kPixels, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PainterCanvas canvas(painter, Letters::areas);
        for (std::size_t i = 0; i < places.size(); i += atOnce)
            canvas.circles(std::span(places).subspan(i, std::min(atOnce, places.size() - i)), circle);
        return image;
    };
    const QImage drawn = painted(100);
    const QImage copied = painted(places.size());
    int greatest = 0;
    for (int y = 0; y < kPixels; ++y)
        for (int x = 0; x < kPixels; ++x)
            greatest = std::max(greatest, std::abs(qGray(drawn.pixel(x, y)) - qGray(copied.pixel(x, y))));
    EXPECT_GT(greatest, 0);
    EXPECT_LT(greatest, 64);
}

TEST(Extents, StraysAreNamed) {
    startFonts();
    std::string records;
    for (int i = 0; i < 10; ++i)
        records += "0 LINE|10 " + std::to_string(i) + "|20 0|11 5|21 " + std::to_string(i) + "|";
    const auto measured = [](const std::string& all) { return measureScene(drawingOf(all), {}); };
    const Extents extents = measured(records + "0 LINE|5 77|10 1e9|11 1e9|21 1");
    EXPECT_EQ(extents.box, QRectF(0, 0, 9, 9));
    ASSERT_EQ(extents.outliers.size(), 1U);
    EXPECT_EQ(extents.outliers[0].handle, 0x77U);
    EXPECT_EQ(extents.outliers[0].type, "LINE");
    // A frame around all is none, nor is anything in a drawing of few entities.
    EXPECT_TRUE(measured(records + "0 LINE|10 -40|11 60|21 60").outliers.empty());
    EXPECT_TRUE(measured("0 LINE|11 1|0 LINE|10 1e9|11 1e9|21 1").outliers.empty());
    EXPECT_TRUE(measured("0 LINE|8 OFF|11 1").isEmpty);
}

} // namespace
} // namespace zu::picture
