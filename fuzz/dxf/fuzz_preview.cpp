// Draws any bytes as a part drawing.
#include "../support/memory_file.h"

#include "part_picture.h"

#include <QGuiApplication>

#include <string_view>

namespace {

void startGraphics() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static int count = 0;
    static const QGuiApplication application(count, nullptr);
}

} // namespace

/// The font library keeps its tables until the end.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zu::fuzz::MemoryFile file;
    startGraphics();
    const CAcadDxf part(file.fill({reinterpret_cast<const char*>(data), size}));
    return zu::preview::pictureOf(part, {.size = {64, 48}}).isNull() ? -1 : 0;
}
