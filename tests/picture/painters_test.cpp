#include "flat_set.h"
#include "painters/painter_canvas.h"
#include "painters/png_file.h"

#include <QImage>

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace zu::picture;

namespace {

QImage page(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

unsigned below(unsigned limit, std::mt19937& random) {
    return static_cast<unsigned>(random()) % limit;
}

QPainterPath lineOf(const QLineF& line) {
    QPainterPath path(line.p1());
    path.lineTo(line.p2());
    return path;
}

} // namespace

TEST(PngFile, HoldsThePictureWhetherItIsCompressedInPartsOrNot) {
    std::mt19937 random(7);
    for (const auto& [side, colours] : {std::pair{40, 16U}, {40, 4000U}, {1300, 16U}, {1300, 4000U}}) {
        QImage image = page(side, side);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                image.setPixel(x, y, 0xFF000000U | below(colours, random) * 0x1357U);
        const QImage read = QImage::fromData(pngOf(image), "PNG").convertToFormat(QImage::Format_RGB32);
        EXPECT_TRUE(read == image) << side << ' ' << colours;
    }
}

TEST(PainterCanvas, PaintsManyLinesInTheirOrderWithAllElse) {
    constexpr unsigned kSide = 300;
    std::mt19937 random(3);
    const auto place = [&] { return QPointF(below(kSide, random), below(kSide, random)); };
    const QPen thin(Qt::red, 1.2, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin);
    QImage image = page(kSide, kSide);
    QImage expected = page(kSide, kSide);
    {
        QPainter painter(&image);
        PainterCanvas canvas(painter, Letters::areas);
        QPainter direct(&expected);
        direct.setRenderHint(QPainter::Antialiasing);
        for (int i = 0; i < 9000; ++i) {
            const QLineF line(place(), place());
            canvas.stroke(lineOf(line), {thin.color(), thin.widthF(), {}});
            direct.setPen(thin);
            direct.drawLine(line);
            if (i % 2800 != 0)
                continue;
            QPainterPath area;
            area.addRect(QRectF(place(), QSizeF(120.0, 90.0)));
            canvas.fill(area, Qt::blue);
            direct.fillPath(area, Qt::blue);
        }
    }
    EXPECT_TRUE(image == expected);
}

TEST(FlatSet, TakesEachKeyOnce) {
    struct Same { // all collide
        std::size_t operator()(int /*key*/) const { return 61; }
    };
    FlatSet<int, Same> flat;
    std::set<int> known;
    std::mt19937 random(5);
    for (int i = 0; i < 500; ++i) {
        const int key = static_cast<int>(below(200, random));
        EXPECT_EQ(flat.insert(key), known.insert(key).second) << key;
    }
    EXPECT_EQ(flat.size(), known.size());
}
