#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/drawing_file.h"
#include "model/filter.h"
#include "model/settings_file.h"
#include "plan/plan_picture.h"
#include "report/output.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <charconv>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    std::string settings;
    std::string output;
    int width = 0;
    std::string size;
    std::string paper;
    std::string scale;
    std::string orientation;
    std::string window;
    std::string layout;
    std::string labels;
    std::string theme;
    bool outlines = false;
    bool noLegend = false;
    bool noMarks = false;
    bool json = false;
};

/// Numbers with one separator between them; nullopt unless there are as many as wanted.
template <typename T, std::size_t N>
std::optional<std::array<T, N>> numbers(std::string_view text, char separator) {
    std::array<T, N> found{};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t i = 0; i < N; ++i) {
        if (i > 0 && (at == end || *at++ != separator))
            return std::nullopt;
        const auto [next, error] = std::from_chars(at, end, found[i]);
        if (error != std::errc())
            return std::nullopt;
        at = next;
    }
    return at == end ? std::optional(found) : std::nullopt;
}

template <typename T, std::size_t N>
using Choices = std::array<std::pair<const char*, T>, N>;

// The first one of each is the default.
constexpr Choices<PlanTheme, 2> kThemes{{{"light", PlanTheme::light}, {"dark", PlanTheme::dark}}};
constexpr Choices<PlanLabelKind, 5> kLabels{{{"auto", PlanLabelKind::automatic},
                                             {"none", PlanLabelKind::none},
                                             {"handles", PlanLabelKind::handles},
                                             {"names", PlanLabelKind::names},
                                             {"sizes", PlanLabelKind::sizes}}};
constexpr Choices<bool, 2> kOrientations{{{"landscape", true}, {"portrait", false}}};

template <typename T, std::size_t N>
T chosen(const Choices<T, N>& choices, const std::string& given) {
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [&given](const auto& choice) { return choice.first == given; });
    return found != choices.end() ? found->second : choices.front().second;
}

template <typename T, std::size_t N>
std::vector<std::string> namesOf(const Choices<T, N>& choices) {
    std::vector<std::string> names;
    for (const auto& [name, value] : choices)
        names.emplace_back(name);
    return names;
}

QSize parseSize(const Options& options) {
    constexpr int kLeast = 16;
    constexpr int kMost = 20000;
    if (options.size.empty())
        return {options.width > 0 ? options.width : 0, 0};
    const auto size = numbers<int, 2>(options.size, 'x');
    if (!size || std::any_of(size->begin(), size->end(), [](int s) { return s < kLeast || s > kMost; }))
        throw WrongUsage("--size " + options.size +
                         ": expected width and height in pixels, as 1600x900, each " +
                         std::to_string(kLeast) + " to " + std::to_string(kMost));
    return {(*size)[0], (*size)[1]};
}

double parseScale(const std::string& scale) {
    constexpr double kMost = 1e9;
    if (scale.empty())
        return 0.0;
    const auto parts = numbers<double, 2>(scale, ':');
    if (!parts || !((*parts)[0] > 0.0) || !((*parts)[1] > 0.0) || !((*parts)[1] / (*parts)[0] < kMost) ||
        !((*parts)[1] / (*parts)[0] > 1.0 / kMost))
        throw WrongUsage("--scale " + scale + ": expected a scale such as 1:50");
    return (*parts)[1] / (*parts)[0];
}

std::optional<PlanPaper> parsePaper(const Options& options) {
    if (options.paper.empty() && options.scale.empty() && options.orientation.empty())
        return std::nullopt;
    if (!options.size.empty() || options.width > 0)
        throw WrongUsage("--size and --width are for pictures without --paper, --scale and --orientation");
    PlanPaper paper{options.paper, std::nullopt, parseScale(options.scale)};
    if (!options.orientation.empty())
        paper.landscape = chosen(kOrientations, options.orientation);
    return paper;
}

std::optional<QRectF> parseWindow(const std::string& window) {
    constexpr double kFarthest = 1e12;
    if (window.empty())
        return std::nullopt;
    const auto sides = numbers<double, 4>(window, ',');
    if (!sides ||
        std::any_of(sides->begin(), sides->end(), [](double s) { return !(std::abs(s) < kFarthest); }))
        throw WrongUsage("--window " + window + ": expected two corners in drawing units, as x1,y1,x2,y2");
    const QRectF area =
        QRectF(QPointF((*sides)[0], (*sides)[1]), QPointF((*sides)[2], (*sides)[3])).normalized();
    if (area.isEmpty())
        throw WrongUsage("--window " + window + ": the corners enclose no area");
    return area;
}

/// Names with "*" and "?", separated by commas.
std::function<bool(const QString&)> layerFilter(const std::string& names) {
    if (names.empty())
        return {};
    std::vector<QRegularExpression> patterns;
    for (const QString& name : QString::fromStdString(names).split(u',')) {
        QString pattern = QRegularExpression::escape(name.trimmed());
        pattern.replace("\\*", ".*").replace("\\?", ".");
        patterns.emplace_back(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::CaseInsensitiveOption);
    }
    return [patterns](const QString& layer) {
        return std::any_of(patterns.begin(), patterns.end(),
                           [&layer](const QRegularExpression& p) { return p.match(layer).hasMatch(); });
    };
}

PlanOptions planOptions(const Options& options) {
    PlanOptions plan;
    plan.size = parseSize(options);
    plan.paper = parsePaper(options);
    plan.window = parseWindow(options.window);
    plan.layout = options.layout;
    plan.theme = chosen(kThemes, options.theme);
    plan.labels = chosen(kLabels, options.labels);
    plan.textAsOutlines = options.outlines;
    plan.hasLegend = !options.noLegend;
    plan.marksJoints = !options.noMarks;
    plan.showsLayer = layerFilter(options.filter.layers);
    return plan;
}

nlohmann::ordered_json asJson(const PlanReport& report) {
    nlohmann::ordered_json omissions = nlohmann::ordered_json::array();
    for (const PlanOmission& omission : report.notDrawn)
        omissions.push_back({{"type", omission.type}, {"count", omission.count}, {"why", omission.why}});
    return {{"drawn", report.drawn}, {"not_drawn", omissions}};
}

void warn(const std::string& path, const PlanReport& report) {
    for (const PlanOmission& omission : report.notDrawn)
        std::cerr << path << ": not drawn: " << omission.count << ' ' << omission.type << ": " << omission.why
                  << '\n';
    for (const std::string& remark : report.remarks)
        std::cerr << path << ": " << remark << '\n';
}

void run(const Options& options) {
    const SettingsFile settings(options.settings);
    PlanOptions plan = planOptions(options);
    const Filter filter(options.filter);
    DrawingFile drawing(options.drawing);
    if (options.filter.isGiven()) {
        const std::vector<AcDbObjectId> passing = filter.references(drawing);
        plan.showsElement = [shown = std::unordered_set(passing.begin(), passing.end())](AcDbObjectId id) {
            return shown.contains(id);
        };
    }
    const PlanReport report = savePlan(drawing.database(), options.output, plan);
    warn(options.drawing.path, report);
    if (options.json)
        std::cout << asJson(report).dump() << '\n';
}

} // namespace

void addPlanCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "plan", "Draw the plan: routes coloured by link kind, connection points marked");
    command->add_option("-o,--output", options->output, "The picture, .png, .svg or .pdf")->required();
    command->add_option("--width", options->width, "Width in pixels; the height follows the plan")
        ->range(100, 20000);
    command->add_option("--size", options->size, "Width and height in pixels, as 1600x900");
    command->add_option("--paper", options->paper, "Paper: A4 to A0, B4 to B1; A3 by default for .pdf");
    command->add_option("--scale", options->scale,
                        "Scale on paper, as 1:50; by default the largest usual one that fits");
    command
        ->add_option("--orientation", options->orientation,
                     "landscape or portrait paper; by default what suits the plan")
        ->choices(namesOf(kOrientations));
    command->add_option("--window", options->window, "Shows only the area x1,y1,x2,y2, in drawing units");
    command->add_option("--layout", options->layout, "Draws a layout of this name as it would be plotted");
    command
        ->add_option("--labels", options->labels,
                     "auto (handles at dangling points, names of equipment), none, handles, names or sizes")
        ->choices(namesOf(kLabels));
    command->add_option("--theme", options->theme, "light or dark")->choices(namesOf(kThemes));
    command->add_option("--settings", options->settings,
                        "Master settings file: names of link kinds for the legend");
    command->add_flag("--outlines", options->outlines, "SVG: letters as outlines, which need no fonts");
    command->add_flag("--no-legend", options->noLegend, "Leaves out the legend");
    command->add_flag("--no-marks", options->noMarks, "Leaves out the marks of connection points");
    command->add_flag("--json", options->json, "Prints what is drawn and what is not as JSON");
    addFilter(*command, options->filter);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
