#include "plan/part_previews.h"

#include "failure.h"
#include "manners/translation.h"
#include "model/drawing_file.h"
#include "painters/page_file.h"
#include "painters/painter_canvas.h"
#include "painters/png_file.h"
#include "painters/shape_painter.h"
#include "painters/svg_canvas.h"
#include "painters/theme.h"
#include "plan/picture_file.h"
#include "readers.h"
#include "scene.h"
#include "terminal.h"
#include "text.h"

#include <QGuiApplication>
#include <QString>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <functional>
#include <iostream>
#include <utility>
#include <vector>
#include <zuhost/texts.h>

namespace zu::app {

namespace {

namespace fs = std::filesystem;

constexpr int kPictureWidth = 800;
constexpr int kThumbnailWidth = 256;

/// Fonts need an application; pictures need no display.
void startGraphics() {
    // Remarks on the session that a program without a window doesn't need.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static int count = 3;
    static char name[] = "zu";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static char* arguments[] = {name, option, platform, nullptr};
    static const QGuiApplication* application =
        QGuiApplication::instance() != nullptr ? nullptr : new QGuiApplication(count, arguments);
    static_cast<void>(application);
}

std::string lowerExtension(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

/// What came of drawing a part.
struct Preview {
    QByteArray bytes; ///< Empty when there is too much to draw.
    picture::Extents extents;
};

/// The picture is as wide as asked, or as high as three quarters of that.
QSizeF sizeOf(const QRectF& box, int width) {
    constexpr double kHeight = 0.75;
    constexpr double kFlattest = 0.2;
    const double proportion = box.height() > 0.0 ? box.width() / box.height() : INFINITY;
    // Written so that NaN gives the whole height.
    const double across =
        proportion < 1.0 / kHeight ? std::max(proportion, kFlattest) * kHeight * width : width;
    const double height =
        proportion > 1.0 / kHeight ? std::max(width / proportion, kFlattest * width) : kHeight * width;
    return {std::round(across), std::round(height)};
}

/// Fits the box into the picture, y turned around.
QTransform fitInto(const QSizeF& size, const QRectF& box) {
    const double margin = std::max(3.0, 0.04 * std::min(size.width(), size.height()));
    // Far from the origin digits are lost: something small there must not be enlarged to where they would
    // show.
    const double farthest =
        std::max({std::abs(box.left()), std::abs(box.right()), std::abs(box.top()), std::abs(box.bottom())});
    const double smallest = std::max({box.width() * 1e-6, box.height() * 1e-6, farthest * 1e-10, 1e-15});
    const double scale = std::min((size.width() - 2 * margin) / std::max(box.width(), smallest),
                                  (size.height() - 2 * margin) / std::max(box.height(), smallest));
    QTransform transform = QTransform::fromTranslate(size.width() / 2.0, size.height() / 2.0);
    transform.scale(scale, -scale);
    return transform.translate(-box.center().x(), -box.center().y());
}

QByteArray paintInto(const std::string& file, const QSizeF& size, const picture::Theme& theme,
                     const std::function<void(picture::PageCanvas&)>& paint) {
    const std::string extension = lowerExtension(file);
    if (extension == ".svg") {
        picture::SvgCanvas canvas(size, theme.ground, picture::SvgText::text);
        paint(canvas);
        return canvas.finish();
    }
    const bool isPdf = extension == ".pdf";
    const auto painted = [&](QPainter& painter) {
        picture::PainterCanvas canvas(painter, isPdf ? picture::Letters::text : picture::Letters::areas);
        paint(canvas);
    };
    return isPdf ? picture::pagePdf(size, theme.ground, painted)
                 : picture::pngOf(picture::pageImage(size.toSize(), theme.ground, painted));
}

Preview previewOf(const std::string& part, const std::string& file, int width,
                  const PreviewOptions& options) {
    const auto drawing =
        picture::readPart(std::wstring(zuhost::viewOf(wide(part))), {.strictTable = options.strictTable});
    if (drawing == nullptr)
        throw Failure(part + ": cannot be opened");
    Preview preview{{}, picture::measureScene(*drawing, {})};
    if (preview.extents.report.isTooMuch)
        return preview;
    const QSizeF size =
        preview.extents.isEmpty ? QSizeF(width, width * 0.75) : sizeOf(preview.extents.box, width);
    const picture::Theme theme = options.dark ? picture::Theme::dark() : picture::Theme::light();
    // Small pictures have thin lines.
    const double thinnest = std::clamp(width / 800.0, 0.6, 1.0);
    preview.bytes = paintInto(file, size, theme, [&](picture::PageCanvas& canvas) {
        picture::ShapePainter painter(canvas, fitInto(size, preview.extents.box), QRectF({}, size));
        picture::SceneOptions scene;
        scene.resolution = painter.resolution();
        picture::produceShapes(*drawing, scene, [&](const picture::Shape& shape) {
            painter.paint(shape, {theme.colourOf(shape.colour), thinnest});
            return true;
        });
    });
    return preview;
}

void warn(const std::string& part, const picture::Extents& extents) {
    for (const picture::NotDrawn& omission : extents.report.notDrawn)
        std::cerr << part << ": not drawn: " << omission.count << ' ' << omission.type << ": " << omission.why
                  << '\n';
    for (const picture::Outlier& outlier : extents.outliers)
        std::cerr << part << ": too far from everything else to be in one picture: " << outlier.type << ' '
                  << handleText(AcDbHandle(outlier.handle)) << '\n';
    if (extents.isEmpty)
        std::cerr << part << ": holds nothing to draw\n";
}

std::vector<fs::path> drawingsIn(const fs::path& folder) {
    if (!fs::is_directory(folder))
        throw Failure(folder.string() + ": no such folder");
    std::vector<fs::path> found;
    constexpr auto kOptions = fs::directory_options::skip_permission_denied;
    for (const auto& entry : fs::recursive_directory_iterator(folder, kOptions))
        if (entry.is_regular_file() && lowerExtension(entry.path()) == ".dxf")
            found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace

void savePreview(const std::string& part, const std::string& file, const PreviewOptions& options) {
    const std::string extension = lowerExtension(file);
    if (extension != ".png" && extension != ".svg" && extension != ".pdf")
        throw WrongUsage(file + ": a part is drawn into a .png, .svg or .pdf file");
    startGraphics();
    const Preview preview = previewOf(part, file, options.size > 0 ? options.size : kPictureWidth, options);
    if (preview.extents.report.isTooMuch)
        throw Failure(file + ": the drawing holds too much for a picture: look for blocks that are repeated "
                             "very often");
    warn(part, preview.extents);
    savePicture(preview.bytes, file);
}

void savePreviews(const std::string& folder, const std::string& pictureFolder,
                  const PreviewOptions& options) {
    startGraphics();
    const std::vector<fs::path> drawings = drawingsIn(folder);
    const int width = options.size > 0 ? options.size : kThumbnailWidth;
    std::vector<std::pair<std::string, picture::Extents>> seen;
    std::size_t drawn = 0;
    ProgressLine progress;
    for (const fs::path& drawing : drawings) {
        fs::path picture = fs::path(pictureFolder) / fs::relative(drawing, folder);
        picture += ".png";
        fs::create_directories(picture.parent_path());
        Preview preview = previewOf(drawing.string(), picture.string(), width, options);
        if (!preview.extents.report.isTooMuch) {
            savePicture(preview.bytes, picture.string());
            ++drawn;
        }
        seen.emplace_back(drawing.string(), std::move(preview.extents));
        progress.show(seen.size(), drawings.size());
    }
    progress.clear();
    for (const auto& [path, extents] : seen)
        if (extents.report.isTooMuch)
            std::cerr << path << ": holds too much for a picture\n";
        else
            warn(path, extents);
    std::cout << translated(std::to_string(drawn) + " pictures") << '\n';
}

} // namespace zu::app
