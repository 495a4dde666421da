// Prints the box of each entity's shapes: "HANDLE TYPE KINDS LEFT BOTTOM RIGHT TOP", then what is not drawn:
// "- TYPE COUNT WHY". Usage: shape_probe [--database] [--layout NAME] FILE
#include "readers.h"
#include "records/drawing.h"
#include "scene.h"
#include "text_outline.h"

#include <QGuiApplication>

#include <cstdio>
#include <dbmain.h>
#include <map>
#include <string>

namespace {

using namespace zu::picture;

struct Ink {
    std::string kinds;
    QRectF box;
};

std::shared_ptr<const Drawing> open(const QString& file, bool asDatabase) {
    if (!asDatabase)
        return readPart(file.toStdWString());
    AcDbDatabase database(false, true);
    return database.dxfIn(file.toStdWString().c_str()) == Acad::eOk ? readDatabase(copyDatabase(database))
                                                                    : nullptr;
}

/// United by hand: QRectF drops boxes without width or height.
QRectF united(const QRectF& a, const QRectF& b) {
    return {QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
            QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const auto drawing = open(arguments.last(), arguments.contains(QStringLiteral("--database")));
    if (drawing == nullptr)
        return 1;
    SceneOptions options;
    if (const qsizetype at = arguments.indexOf(QStringLiteral("--layout")); at > 0)
        options.layout = arguments[at + 1];
    std::map<std::uint64_t, Ink> inks;
    const SceneReport report = produceShapes(*drawing, options, [&](const Shape& shape) {
        const bool isText = shape.kind == Shape::Kind::text;
        const QRectF box = (isText ? outlineOf(shape.run) : shape.path).boundingRect();
        const auto [ink, isNew] = inks.try_emplace(shape.source, Ink{{}, box});
        ink->second.box = united(ink->second.box, box);
        if (const char kind = "sftd"[static_cast<int>(shape.kind)];
            ink->second.kinds.find(kind) == std::string::npos)
            ink->second.kinds += kind;
        return true;
    });
    for (const auto& [handle, ink] : inks)
        std::printf("%llX %s %.9g %.9g %.9g %.9g\n", static_cast<unsigned long long>(handle),
                    ink.kinds.c_str(), ink.box.left(), ink.box.top(), ink.box.right(), ink.box.bottom());
    for (const NotDrawn& not_ : report.notDrawn)
        std::printf("- %s %zu %s\n", not_.type.c_str(), not_.count, not_.why.c_str());
    return report.isTooMuch ? 2 : 0;
}
