// Draws any bytes as a drawing: model space and its layouts, small, with every shape painted.
#include "painters/painter_canvas.h"
#include "painters/shape_painter.h"
#include "painters/theme.h"
#include "records/drawing.h"
#include "scene.h"

#include <QGuiApplication>
#include <QImage>

#include <algorithm>
#include <string>

namespace {

using namespace zu::picture;

constexpr std::uint64_t kMost = 200'000;
constexpr QSize kSize(64, 48);

void startGraphics() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static int count = 0;
    static const QGuiApplication application(count, nullptr);
}

QTransform fitInto(const QRectF& box) {
    const double scale =
        std::min(kSize.width() / std::max(box.width(), 1e-9), kSize.height() / std::max(box.height(), 1e-9));
    QTransform transform = QTransform::fromScale(scale, -scale);
    transform.translate(-box.left(), -box.bottom());
    return transform;
}

void draw(const Drawing& drawing, const QString& layout) {
    SceneOptions options;
    options.layout = layout;
    options.most = kMost;
    const Extents extents = measureScene(drawing, options);
    options.frame = extents.box;
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter qtPainter(&image);
    PainterCanvas canvas(qtPainter, Letters::areas);
    ShapePainter painter(canvas, fitInto(extents.box), QRectF(QPointF(), QSizeF(kSize)));
    produceShapes(drawing, options, [&](const Shape& shape) {
        painter.paint(shape, {Theme::light().colourOf(shape.colour)});
        return true;
    });
}

} // namespace

/// The font library keeps its tables until the end.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    startGraphics();
    const Drawing drawing(std::string(reinterpret_cast<const char*>(data), size));
    draw(drawing, {});
    constexpr std::size_t kMostLayouts = 2;
    const std::vector<QString> layouts = layoutNames(drawing);
    for (std::size_t i = 0; i < std::min(layouts.size(), kMostLayouts); ++i)
        draw(drawing, layouts[i]);
    return 0;
}
