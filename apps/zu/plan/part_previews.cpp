#include "plan/part_previews.h"

#include "failure.h"
#include "part_picture.h"
#include "plan/picture_file.h"
#include "terminal.h"
#include "text.h"

#include <QGuiApplication>
#include <QString>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <vector>

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

/// False, and no file is written, when the drawing holds too much.
bool draw(const CAcadDxf& part, const fs::path& file, int width, bool dark) {
    const QImage picture = preview::pictureOf(part, {.size = {width, width * 3 / 4}, .dark = dark});
    if (picture.isNull())
        return false;
    savePicture(pngOf(picture), file.string());
    return true;
}

bool isDrawing(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".dxf";
}

std::vector<fs::path> drawingsIn(const fs::path& folder) {
    if (!fs::is_directory(folder))
        throw Failure(folder.string() + ": no such folder");
    std::vector<fs::path> found;
    constexpr auto kOptions = fs::directory_options::skip_permission_denied;
    for (const auto& entry : fs::recursive_directory_iterator(folder, kOptions))
        if (entry.is_regular_file() && isDrawing(entry.path()))
            found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace

void savePreview(const CAcadDxf& part, const std::string& file, PreviewOptions options) {
    startGraphics();
    if (!draw(part, file, options.size > 0 ? options.size : kPictureWidth, options.dark))
        throw Failure(file + ": the drawing holds too much for a picture: look for blocks that are repeated "
                             "very often");
}

void savePreviews(const std::string& folder, const std::string& pictureFolder, PreviewOptions options,
                  int tableOption) {
    startGraphics();
    const std::vector<fs::path> drawings = drawingsIn(folder);
    const int width = options.size > 0 ? options.size : kThumbnailWidth;
    ProgressLine progress;
    std::vector<fs::path> empty;
    std::vector<fs::path> tooLarge;
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        const CAcadDxf part(wide(drawings[i].string()), CAcadDxf::kWhite, tableOption);
        if (part.GetEntities().IsEmpty() != FALSE)
            empty.push_back(drawings[i]);
        fs::path picture = fs::path(pictureFolder) / fs::relative(drawings[i], folder);
        picture += ".png";
        fs::create_directories(picture.parent_path());
        if (!draw(part, picture, width, options.dark))
            tooLarge.push_back(drawings[i]);
        progress.show(i + 1, drawings.size());
    }
    progress.clear();
    for (const fs::path& path : empty)
        std::cerr << path.string() << ": holds nothing to draw\n";
    for (const fs::path& path : tooLarge)
        std::cerr << path.string() << ": holds too much for a picture\n";
    std::cout << drawings.size() - tooLarge.size() << " pictures\n";
}

} // namespace zu::app
