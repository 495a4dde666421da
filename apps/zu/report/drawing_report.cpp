#include "report/drawing_report.h"

#include "manners/translation.h"
#include "model/audit.h"
#include "painters/png_file.h"
#include "plan/plan_picture.h"
#include "report/finding_json.h"
#include "text.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/quantities.h>
#include <zuhost/drawing_files.h>
#include <zuhost/language.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace zu::app {

namespace {

constexpr int kPlanWidth = 1600;
constexpr qsizetype kLargestSvg = 2'000'000; ///< Bytes; browsers draw larger ones slowly.

std::string nameOf(const std::string& drawing) {
    return std::filesystem::path(drawing).filename().string();
}

/// The release whose form a drawing has.
std::string formatName(int version) {
    struct Release {
        int version;
        const char* name;
    };
    constexpr std::array kReleases{Release{1009, "R12"},   Release{1012, "R13"},   Release{1014, "R14"},
                                   Release{1015, "R2000"}, Release{1018, "R2004"}, Release{1021, "R2007"},
                                   Release{1024, "R2010"}, Release{1027, "R2013"}, Release{1032, "R2018"}};
    const auto* const found =
        std::find_if(kReleases.begin(), kReleases.end(),
                     [version](const Release& each) { return each.version == version; });
    return found != kReleases.end() ? std::string("DXF ") + found->name : "DXF";
}

std::string dataAddress(const char* type, const QByteArray& bytes) {
    return std::string("data:") + type + ";base64," + bytes.toBase64().toStdString();
}

std::string pictureAddress(const PlanPicture& picture, PlanForm form) {
    if (form == PlanForm::svg)
        if (const QByteArray svg = picture.svg(); svg.size() <= kLargestSvg)
            return dataAddress("image/svg+xml", svg);
    return dataAddress("image/png", picture::pngOf(picture.image()));
}

PlanPicture pictureOf(DrawingFile& drawing, PlanTheme theme) {
    PlanOptions options;
    options.theme = theme;
    options.size = {kPlanWidth, 0};
    options.labels = PlanLabelKind::none;
    return {drawing.database(), options};
}

Json planJson(DrawingFile& drawing, const PlanPicture& light, PlanForm form) {
    return {{"width", light.size().width()},
            {"height", light.size().height()},
            {"light", pictureAddress(light, form)},
            {"dark", pictureAddress(pictureOf(drawing, PlanTheme::dark), form)}};
}

Json placeOf(const std::optional<AcGePoint3d>& position, const PlanPicture& picture) {
    if (!position)
        return {};
    const QPointF at = picture.toPicture().map(QPointF(position->x, position->y));
    const double x = at.x() / picture.size().width();
    const double y = at.y() / picture.size().height();
    const bool isInSight = x >= 0.0 && x <= 1.0 && y >= 0.0 && y <= 1.0;
    return isInSight ? Json({x, y}) : Json();
}

/// Errors first; numbered in that order.
Json findingsJson(DrawingFile& drawing, const PlanPicture& picture) {
    std::vector<Finding> findings = audit(drawing, false);
    std::stable_partition(findings.begin(), findings.end(),
                          [](const Finding& finding) { return finding.severity == zucomn::Severity::error; });
    Json array = Json::array();
    for (const Finding& finding : findings) {
        Json entry = findingJson(finding);
        entry["number"] = array.size() + 1;
        entry["place"] = placeOf(finding.position, picture);
        array.push_back(std::move(entry));
    }
    return array;
}

std::string kindName(int kind) {
    if (zuhost::environmentNamesLanguage())
        for (const zucomn::RouteKind& each : zucomn::routeKinds())
            if (each.number == kind)
                return narrow(each.name);
    return kind < 0 ? "-" : translated("link kind " + std::to_string(kind));
}

Json quantitiesJson(DrawingFile& drawing) {
    Json rows = Json::array();
    for (const zucomn::QuantityRow& row : zucomn::countQuantities(drawing.database(), {}).rows)
        rows.push_back({{"kind", kindName(row.kind)},
                        {"what", translated(narrow(zucomn::elementKindName(row.code)))},
                        {"block", narrow(row.block)},
                        {"size", narrow(row.size)},
                        {"count", row.quantity.count},
                        {"length", row.quantity.length > 0.0 ? Json(row.quantity.length) : Json()}});
    return rows;
}

} // namespace

Json reportOn(const DrawingSource& source, PlanForm form) {
    DrawingFile drawing(source);
    const PlanPicture picture = pictureOf(drawing, PlanTheme::light);
    Json report{{"drawing", source.path},
                {"name", nameOf(source.path)},
                {"program", "zu " ZU_VERSION},
                {"format", formatName(zuhost::drawingVersion(drawing.database()))},
                {"objects", drawing.database().approxNumObjects()},
                {"elements", drawing.references().size()},
                {"groups", drawing.groups().size()},
                {"warnings", Json::array()}};
    for (const std::wstring& warning : zuhost::warnings(drawing.database()))
        report["warnings"].push_back(narrow(warning));
    report["findings"] = findingsJson(drawing, picture);
    report["quantities"] = quantitiesJson(drawing);
    report["plan"] = planJson(drawing, picture, form);
    return report;
}

Json failedReport(const std::string& drawing, const std::string& error) {
    return {{"drawing", drawing}, {"name", nameOf(drawing)}, {"error", error}};
}

} // namespace zu::app
