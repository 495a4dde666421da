#include "command_line.h"
#include "commands/attribute_window.h"
#include "commands/commands.h"
#include "failure.h"
#include "manners/translation.h"
#include "model/attribute_edit.h"
#include "model/attribute_rows.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "model/sample_settings.h"
#include "plan/plan_picture.h"
#include "report/output.h"

#include <zuhost/platform/libraries.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <system_error>

namespace zu::app {

namespace {

namespace fs = std::filesystem;

constexpr const char* kKey = "S401";
constexpr const char* kNewValue = "2850";

struct Options {
    std::string samples; ///< Empty: those of the current folder, else the installed ones.
    std::string output = "out";
};

/// Prints what a step did and how long it took.
class Step {
public:
    Step(int number, const std::string& title) : started_(Clock::now()) {
        std::cout << '\n' << number << ". " << translated(title) << '\n';
    }
    ~Step() {
        const auto took = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - started_);
        std::cout << "   (" << shortNumber(static_cast<double>(took.count()) / 1000.0) << " ms)\n";
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

    void say(const std::string& text) const { std::cout << "   " << translated(text) << '\n'; }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point started_;
};

std::string kilobytes(const std::string& path) {
    return std::to_string(fs::file_size(path) / 1024);
}

std::unique_ptr<DrawingFile> openDrawing(const std::string& path) {
    const Step step(1, "Open the drawing");
    auto drawing = std::make_unique<DrawingFile>(DrawingSource{path});
    step.say(path + ": " + kilobytes(path) + " KB, " +
             std::to_string(drawing->database().approxNumObjects()) + " objects");
    return drawing;
}

std::vector<Element> listElements(const DrawingFile& drawing) {
    const Step step(2, "List the route elements");
    std::vector<Element> elements;
    std::map<std::string, int> kinds;
    for (const AcDbObjectId id : drawing.references()) {
        Element element = readElement(id);
        if (!element.isRouteElement())
            continue;
        ++kinds[translated(elementCodeName(element.code))];
        elements.push_back(std::move(element));
    }
    for (const auto& [kind, count] : kinds)
        step.say(std::to_string(count) + (count < 10 ? "  x " : " x ") + kind);
    step.say(std::to_string(elements.size()) + " route elements");
    return elements;
}

void showAttributes(const std::vector<Element>& elements) {
    const Step step(3, "Read the attributes of one of them");
    for (const Element& element : elements) {
        const AttributeRows rows = readAttributeRows(element.id);
        if (rows.empty() || element.locked)
            continue;
        step.say(element.block + " (handle " + element.handle + "), " + rows.front()[0] + ' ' +
                 rows.front()[1]);
        for (const auto& row : rows)
            step.say("  " + row[3] + "  " + (row[2].empty() ? row[6] : row[2]) + " = " + row[4]);
        return;
    }
}

AttributeEdit editAll(const std::vector<Element>& elements) {
    const Step step(4, std::string("Set ") + kKey + " to " + kNewValue + " on all of them");
    std::vector<AcDbObjectId> ids;
    ids.reserve(elements.size());
    for (const Element& element : elements)
        ids.push_back(element.id);
    AttributeEdit edit = editAttribute(ids, kKey, kNewValue, false);
    step.say(std::to_string(edit.changed.size()) + " elements changed");
    for (const SkippedElement& skipped : edit.skipped)
        step.say("skipped " + skipped.handle + ": " + skipped.why);
    return edit;
}

void saveDrawing(DrawingFile& drawing, const std::string& path) {
    const Step step(5, "Save");
    drawing.save({.output = path});
    step.say(path + ": " + kilobytes(path) + " KB");
}

/// The saved drawing must hold the new value where it was written, and the old one everywhere else.
void checkSaved(const std::string& path, const AttributeEdit& edit) {
    const Step step(6, "Open what was saved and compare");
    const DrawingFile saved({path});
    std::size_t found = 0;
    for (const std::string& handle : edit.changed)
        for (const auto& row : readAttributeRows(saved.find(handle)))
            found += row[3] == kKey && row[4] == kNewValue ? 1 : 0;
    if (found != edit.changed.size())
        throw Failure("the saved drawing has the new value on " + std::to_string(found) +
                      " elements instead of " + std::to_string(edit.changed.size()));
    step.say("the new value is on all " + std::to_string(found) + " elements");
}

void drawPicture(DrawingFile& drawing, const std::string& path) {
    const Step step(7, "Draw the plan");
    const PlanReport plan = savePlan(drawing.database(), path, {});
    step.say(path + ": " + std::to_string(plan.joined + plan.dangling) + " connection points, " +
             std::to_string(plan.joined) + " joined");
}

/// The first few elements of the main route and a pipe, all selected: shows shared, various and greyed
/// values.
void drawWindow(const std::vector<Element>& elements, const std::string& drawing, const std::string& path) {
    const Step step(8, "Draw the attribute window on a selection");
    constexpr int kMost = 3;
    std::map<std::string, int> shown;
    AcArray<AcDbObjectId> selection;
    for (const Element& element : elements)
        if (!element.locked && (element.block == "RT-D300" || element.block == "RT-P50") &&
            ++shown[element.block] <= kMost)
            selection.append(element.id);
    preparePictures(path);
    CAttFrameWnd& window = openAttributeWindow(selection, drawing);
    selectAll(window);
    closeWithPicture(window, path);
    step.say(path + ": the attributes of " + std::to_string(selection.length()) + " elements");
}

/// The program's path as the user can call it from the current folder.
std::string thisProgram() {
    std::error_code unknown;
    const fs::path program = fs::proximate(zuhost::platform::programFile(), unknown);
    return program.empty() ? "zu" : program.string();
}

std::string samplesFolder(const Options& options) {
    if (!options.samples.empty())
        return options.samples;
    const fs::path installed =
        fs::path(zuhost::platform::programFile()).parent_path() / ZU_SAMPLES_FROM_PROGRAM;
    return fs::exists("samples") || !fs::exists(installed) ? "samples"
                                                           : installed.lexically_normal().string();
}

void sayDone(const std::string& folder, const std::string& result) {
    std::cout << '\n'
              << translated("Done. The results are in " + fs::absolute(folder).lexically_normal().string() +
                            ':')
              << '\n'
              << "   office-floor-edited.dxf   " << translated("the drawing with the new attribute values")
              << '\n'
              << "   office-floor-plan.png     "
              << translated("the plan, routes coloured by link kind, joints marked") << '\n'
              << "   attribute-window.png      " << translated("the window in which attributes are edited")
              << '\n'
              << translated("Try: " + thisProgram() + " elements " + result + " --routes") << '\n';
}

void run(const Options& options) {
    const std::string samples = samplesFolder(options);
    const fs::path sample = fs::path(samples) / "drawings" / "office-floor.dxf";
    if (!fs::exists(sample))
        throw Failure(sample.string() + ": not found; name the folder of the samples with --samples");
    fs::create_directories(options.output);
    const std::string result = (fs::path(options.output) / "office-floor-edited.dxf").string();
    std::cout << translated(
                     "The main job on a small office floor: supply and return duct, chilled water, one air "
                     "handler.")
              << '\n';
    const SampleSettings settings(samples, options.output);
    const auto drawing = openDrawing(sample.string());
    const std::vector<Element> elements = listElements(*drawing);
    showAttributes(elements);
    const AttributeEdit edit = editAll(elements);
    saveDrawing(*drawing, result);
    checkSaved(result, edit);
    drawPicture(*drawing, (fs::path(options.output) / "office-floor-plan.png").string());
    drawWindow(elements, sample.string(), (fs::path(options.output) / "attribute-window.png").string());
    sayDone(options.output, result);
}

} // namespace

void addDemoCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand("demo", "The main job on the sample drawing");
    command->add_option("--samples", options->samples,
                        "Folder of the samples; by default samples, else the installed ones");
    command->add_option("--output", options->output, "Folder for the results")->capture_default_str();
    command->callback([options] { run(*options); });
}

} // namespace zu::app
