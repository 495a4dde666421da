#include "batch/batch.h"
#include "batch/results.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/drawing_file.h"
#include "model/standard_streams.h"
#include "report/drawing_report.h"
#include "report/report_document.h"
#include "report/report_page.h"

#include <zuhost/atomic_file.h>
#include <zuhost/system_error.h>

#include <QString>

#include <iostream>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    std::string output;
    bool png = false;
    bool json = false;
};

bool isPdf(const std::string& file) {
    return QString::fromStdString(file).endsWith(".pdf", Qt::CaseInsensitive);
}

bool isPage(const std::string& file) {
    const QString name = QString::fromStdString(file);
    return name.endsWith(".html", Qt::CaseInsensitive) || name.endsWith(".htm", Qt::CaseInsensitive) ||
           file == kStandardStream;
}

void requireOutput(const Options& options) {
    if (options.json == !options.output.empty())
        throw WrongUsage("name a report with -o, or ask for --json");
    if (!options.json && !isPdf(options.output) && !isPage(options.output))
        throw WrongUsage(options.output + ": a report is written to an .html or .pdf file");
}

void save(const Json& reports, const std::string& file) {
    const std::string bytes = isPdf(file) ? reportDocument(reports).toStdString() : reportPage(reports);
    if (file == kStandardStream)
        std::cout << bytes;
    else if (const int error = zuhost::replaceFile(file, bytes))
        throw Failure(file + ": " + zuhost::errorText(error));
}

void run(const Options& options) {
    requireOutput(options);
    const bool png = options.png || isPdf(options.output);
    const Json report = reportOn(options.drawing, png ? PlanForm::png : PlanForm::svg);
    options.json ? printJson(report) : save(Json::array({report}), options.output);
}

void collect(const Command& command, const Options& options, const DrawingBatch& batch) {
    requireOutput(options);
    std::vector<std::string> arguments{"--json"};
    if (isPdf(options.output) && !options.png)
        arguments.emplace_back("--png");
    Json reports = Json::array();
    const int status = collectFromDrawings(
        command, batch, arguments, [&](const std::string& drawing, const TaskResult& result) {
            Json report = Json::parse(result.output, nullptr, false);
            reports.push_back(report.is_object() ? std::move(report)
                                                 : failedReport(drawing, errorOf(result)));
        });
    save(reports, options.output);
    if (status != 0)
        throw EndWithStatus(status);
}

} // namespace

void addReportCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "report", "Report on drawings for reading and printing: plan, findings, quantities");
    command->add_option("-o,--output", options->output,
                        "The report, .html or .pdf; one for all drawings, or with {} one for each");
    command->add_flag("--png", options->png, "Plans as PNG pictures instead of SVG");
    command->add_flag("--json", options->json, "As JSON");
    runForEachDrawing(
        *command, options->drawing, [options] { run(*options); },
        [options, command](const DrawingBatch& batch) { collect(*command, *options, batch); });
}

} // namespace zu::app
