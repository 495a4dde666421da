#include "plan/plan_picture.h"

#include "failure.h"
#include "painters/page_file.h"
#include "painters/painter_canvas.h"
#include "painters/png_file.h"
#include "painters/svg_canvas.h"
#include "plan/picture_file.h"
#include "plan/plan_composition.h"

#include <zuhost/desktop.h>

#include <future>

namespace zu::app {

namespace {

PlanOptions prepared(PlanOptions options) {
    // Pictures need no screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    zuhost::ensureDesktop();
    return options;
}

} // namespace

struct PlanPicture::Data {
    PlanComposition composition;
};

PlanPicture::PlanPicture(AcDbDatabase& drawing, PlanOptions options)
    : data_(new Data{PlanComposition(drawing, prepared(std::move(options)))}) {}

PlanPicture::~PlanPicture() = default;
PlanPicture::PlanPicture(PlanPicture&&) noexcept = default;
PlanPicture& PlanPicture::operator=(PlanPicture&&) noexcept = default;

PlanReport PlanPicture::report() const {
    return data_->composition.report();
}

QSize PlanPicture::size() const {
    const QSizeF& size = data_->composition.page().size;
    return {qCeil(size.width()), qCeil(size.height())};
}

QTransform PlanPicture::toPicture() const {
    return data_->composition.page().toPage;
}

QImage PlanPicture::image() const {
    return picture::pageImage(size(), data_->composition.theme().ground, [this](QPainter& painter) {
        picture::PainterCanvas canvas(painter, picture::Letters::areas);
        data_->composition.paint(canvas);
    });
}

QByteArray PlanPicture::svg() const {
    const PlanComposition& composition = data_->composition;
    picture::SvgCanvas canvas(composition.page().size, composition.theme().ground,
                              composition.options().textAsOutlines ? picture::SvgText::outlines
                                                                   : picture::SvgText::text);
    composition.paint(canvas);
    return canvas.finish();
}

QByteArray PlanPicture::pdf() const {
    const PlanComposition& composition = data_->composition;
    return picture::pagePdf(composition.page().size, composition.theme().ground, [&](QPainter& painter) {
        picture::PainterCanvas canvas(painter, picture::Letters::text);
        composition.paint(canvas);
    });
}

PlanReport savePlan(AcDbDatabase& drawing, const std::string& file, const PlanOptions& options) {
    const QString name = QString::fromStdString(file);
    const auto is = [&name](const char* extension) { return name.endsWith(extension, Qt::CaseInsensitive); };
    if (!is(".png") && !is(".svg") && !is(".pdf"))
        throw WrongUsage(file + ": a plan is drawn into a .png, .svg or .pdf file");
    PlanOptions asked = options;
    if (is(".pdf") && !asked.paper)
        asked.paper.emplace();
    auto plan = std::make_unique<PlanPicture>(drawing, asked);
    if (is(".png")) {
        const QImage image = plan->image();
        PlanReport report = plan->report();
        // Large drawings take as long to free as to compress their picture.
        const auto freed =
            std::async(std::launch::async, [done = std::move(plan)]() mutable { done.reset(); });
        savePicture(picture::pngOf(image), file);
        return report;
    }
    savePicture(is(".svg") ? plan->svg() : plan->pdf(), file);
    return plan->report();
}

} // namespace zu::app
