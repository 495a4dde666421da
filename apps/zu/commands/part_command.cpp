#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "manners/translation.h"
#include "model/readable_file.h"
#include "plan/part_previews.h"
#include "report/csv.h"
#include "report/output.h"
#include "report/part_json.h"
#include "report/part_warnings.h"
#include "text.h"

#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <zuhost/texts.h>

namespace zu::app {

namespace {

struct Options {
    std::string path;
    bool strict = false;
    ListingForm form;
    std::string preview;
    std::string previewFolder;
    bool dark = false;
    int size = 0;
};

int tableOption(const Options& options) {
    return options.strict ? CAcadDxf::kStrictTable : 0;
}

PreviewOptions previewOptions(const Options& options) {
    return {.size = options.size, .dark = options.dark, .strictTable = options.strict};
}

std::string counted(const CObList& list, const std::string& what) {
    return translated(std::to_string(list.GetCount()) + ' ' + what);
}

void printSummary(const CAcadDxf& part) {
    double minX = 0;
    double minY = 0;
    double maxX = 0;
    double maxY = 0;
    part.GetSave(minX, minY, maxX, maxY);
    const std::string form = part.GetAsciiFlag() != 0 ? "ASCII" : translated("binary");
    std::cout << translated(form + ", version " + std::to_string(part.GetVersion()) + ", extents " +
                            shortNumber(minX) + ", " + shortNumber(minY) + " to " + shortNumber(maxX) + ", " +
                            shortNumber(maxY))
              << "\n\n";
}

void printEntities(const CAcadDxf& part) {
    std::map<std::string, int> counts;
    for (POSITION at = part.GetEntities().GetHeadPosition(); at != nullptr;)
        ++counts[narrow(static_cast<const CEnt&>(*part.GetEntities().GetNext(at)).GetTypeName())];
    TextTable table({"entity", "count"});
    for (const auto& [type, count] : counts)
        table.addRow({type, std::to_string(count)});
    table.print();
    std::cout << counted(part.GetEntities(), "entities") << "\n\n";
}

void printLayers(const CAcadDxf& part) {
    TextTable table({"layer", "colour", "linetype", "flags"});
    for (POSITION at = part.GetLayers().GetHeadPosition(); at != nullptr;) {
        const auto& layer = static_cast<const CLayer&>(*part.GetLayers().GetNext(at));
        table.addRow({narrow(zuhost::viewOf(layer.m_name)), std::to_string(layer.m_color),
                      narrow(zuhost::viewOf(layer.m_linetype)), std::to_string(layer.m_flags)});
    }
    table.print();
    std::cout << counted(part.GetLayers(), "layers") << "\n\n";
}

void printBlocks(const CAcadDxf& part) {
    TextTable table({"block", "base", "entities"});
    for (POSITION at = part.GetBlocks().GetHeadPosition(); at != nullptr;) {
        const auto& block = static_cast<const CBlock&>(*part.GetBlocks().GetNext(at));
        table.addRow({narrow(zuhost::viewOf(block.m_name)),
                      shortNumber(block.m_x) + ", " + shortNumber(block.m_y),
                      std::to_string(block.m_entities.GetCount())});
    }
    table.print();
    std::cout << counted(part.GetBlocks(), "blocks") << '\n';
}

/// The entities, and below them those of each block with its name.
void printEntityRows(const Json& part) {
    Json rows = part["entities"];
    for (const Json& block : part["blocks"])
        for (Json entity : block["entities"]) {
            entity["of"] = block["name"];
            rows.push_back(std::move(entity));
        }
    printCsv({"of", "type", "layer", "handle", "color", "lineweight", "paper", "block", "text"}, rows);
}

void readPart(const Options& options) {
    requireReadable(options.path);
    const CAcadDxf part(wide(options.path), CAcadDxf::kWhite, tableOption(options));
    if (!part.IsDrawing() && part.GetZufLines().IsEmpty())
        throw Failure(options.path + ": holds no part drawing");
    printWarnings(options.path, part.GetFindings());
    if (!options.preview.empty())
        savePreview(options.path, options.preview, previewOptions(options));
    if (options.form.json)
        return printJson(partToJson(part));
    if (options.form.csv)
        return printEntityRows(partToJson(part));
    printSummary(part);
    printEntities(part);
    printLayers(part);
    printBlocks(part);
}

void drawFolder(const DrawingBatch& batch, const Options& options) {
    if (batch.operands.size() != 1)
        throw WrongUsage("--preview-dir draws the drawings of one folder");
    savePreviews(batch.operands.front(), options.previewFolder, previewOptions(options));
}

} // namespace

void addPartCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command =
        program.add_subcommand("part", "Read part drawings, ASCII or binary, or draw a folder of them");
    command->add_flag("--strict", options->strict,
                      "Read binary drawings by the table of early part drawings");
    addListingForm(*command, options->form);
    command->add_option("--preview", options->preview,
                        "Draw it into this file, .png, .svg or .pdf; {} stands for the drawing's name");
    command->add_option("--preview-dir", options->previewFolder,
                        "Draw a thumbnail of every drawing in the folder and its folders into this folder");
    command->add_flag("--dark", options->dark, "Draw on a dark background");
    command
        ->add_option("--size", options->size,
                     "Greatest width of the picture in pixels; its proportions follow the drawing")
        ->range(16, 8192);
    runForEachFile(*command, {"FILE", "Part drawings and folders of them"}, options->path,
                   [options] { readPart(*options); },
                   {[options](const DrawingBatch&) { return !options->previewFolder.empty(); },
                    [options](const DrawingBatch& batch) { drawFolder(batch, *options); }});
}

} // namespace zu::app
