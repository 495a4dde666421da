#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "model/filter.h"
#include "model/handle_argument.h"
#include "report/csv.h"
#include "report/json_writer.h"
#include "report/output.h"
#include "text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <zucomn/dbservices.h>
#include <zucomn/route.h>
#include <zuhost/names.h>

#include <iostream>
#include <memory>
#include <span>
#include <unordered_map>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    std::string handle;
    std::string group;
    int kind = 0;
    bool all = false;
    ListingForm form;
};

/// Searches the given group; if null, every group of the element.
AcArray<AcDbObjectId> connectedTo(AcDbObjectId element, AcDbObjectId named, int kind) {
    AcArray<AcDbObjectId> groups;
    if (named.isNull())
        ZuComn_GetGroupID(element, groups);
    else
        groups.append(named);
    AcArray<AcDbObjectId> found;
    for (const AcDbObjectId group : groups)
        RootComn_GetConnectBlock(group, element, found, nullptr, kind);
    return found;
}

/// One row for each pair.
class CsvListing {
public:
    void add(AcDbObjectId element, std::span<const AcDbObjectId> others) {
        const std::string handle = handleText(element);
        for (const AcDbObjectId other : others) {
            csv_.add(handle);
            csv_.add(handleText(other));
        }
    }
    void finish() {}

private:
    CsvPrinter csv_{{"handle", "connected"}};
};

/// An object whose keys are the handles. Each comes once.
class JsonListing {
public:
    JsonListing() { json_.open('{'); }
    void add(AcDbObjectId element, std::span<const AcDbObjectId> others) {
        json_.key(handleText(element));
        json_.open('[');
        for (const AcDbObjectId other : others)
            json_.add(handleText(other));
        json_.close(']');
    }
    void finish() {
        json_.close('}');
        std::cout << json_.text() << '\n';
    }

private:
    JsonWriter json_;
};

/// One row for each joint, and one for an element without any.
class TextListing {
public:
    void add(AcDbObjectId element, std::span<const AcDbObjectId> others) {
        const Cells cells = cellsOf(element);
        if (others.empty())
            addRow(cells, none_);
        for (const AcDbObjectId other : others)
            addRow(cells, cellsOf(other));
    }
    void finish() const { table_.print(); }

private:
    struct Block {
        std::string name;
        std::string what;
    };
    /// What is shown of one element.
    struct Cells {
        std::string handle;
        const Block* block;
    };
    struct Listed {
        AcDbObjectId id;
        Cells cells;
    };
    static constexpr std::size_t kRecent = 1024;
    static constexpr std::size_t kUnit = 16; ///< Objects are at least so many bytes apart.

    void addRow(const Cells& element, const Cells& other) {
        for (const Cells* const cells : {&element, &other}) {
            table_.addCell(cells->handle);
            table_.addCell(cells->block->name);
            table_.addCell(cells->block->what);
        }
    }

    /// An element is listed with each that it joins, and those lie near it in the drawing.
    const Cells& cellsOf(AcDbObjectId id) {
        Listed& listed = recent_[std::hash<AcDbObjectId>()(id) / kUnit % kRecent];
        if (listed.id != id)
            listed = {id, {handleText(id), &blockOf(id)}};
        return listed.cells;
    }

    const Block& blockOf(AcDbObjectId id) {
        const AcDbObjectPointer<AcDbBlockReference> reference(id);
        if (reference.openStatus() != Acad::eOk)
            return noBlock_;
        const auto [entry, isNew] = blocks_.try_emplace(zuhost::blockName(*reference));
        if (isNew) {
            int code = zucomn::kNoElement;
            ZuComn_GetBlockElementCode(id, code);
            entry->second = {narrow(entry->first), elementCodeName(code)};
        }
        return entry->second;
    }

    TextTable table_{{"handle", "block", "what", "joined", "block", "what"}};
    std::unordered_map<std::wstring, Block> blocks_; ///< By name.
    std::vector<Listed> recent_{kRecent};            ///< Each where its id belongs.
    const Block noBlock_{};                          ///< Of what is no block reference.
    const Cells none_{{}, &noBlock_};
};

void runOne(const DrawingFile& drawing, const Options& options, const Filter& filter, AcDbObjectId group) {
    const AcDbObjectId element = drawing.find(options.handle);
    AcArray<AcGePoint3d> points;
    if (ZuComn_GetConnectPoint(element, points) != 0)
        throw Failure("object " + options.handle + " has no connection points that can be read");
    const AcArray<AcDbObjectId> joined = connectedTo(element, group, options.kind);
    const std::vector<AcDbObjectId> found = filter.pass(drawing, {joined.begin(), joined.end()});
    if (options.form.json)
        return printJson(Json(handleTexts(found)));
    if (options.form.csv)
        return CsvListing().add(element, found);
    TextTable table({"handle", "block", "what"});
    for (const AcDbObjectId id : found) {
        const Element joinedElement = readElement(id);
        table.addRow({joinedElement.handle, joinedElement.block, elementCodeName(joinedElement.code)});
    }
    table.print();
}

/// Every member of the group (without one: every block reference).
std::vector<AcDbObjectId> everyElement(const DrawingFile& drawing, AcDbObjectId group) {
    if (group.isNull())
        return drawing.references();
    AcArray<AcDbObjectId> members;
    RootComn_GetGroupMember(group, members);
    return {members.begin(), members.end()};
}

template <typename Listing>
void printAll(const DrawingFile& drawing, const Options& options, const Filter& filter, AcDbObjectId group) {
    Listing listing;
    for (const AcDbObjectId element : filter.pass(drawing, everyElement(drawing, group)))
        listing.add(element, connectedTo(element, group, options.kind));
    listing.finish();
}

void runAll(const DrawingFile& drawing, const Options& options, const Filter& filter, AcDbObjectId group) {
    if (options.form.json)
        printAll<JsonListing>(drawing, options, filter, group);
    else if (options.form.csv)
        printAll<CsvListing>(drawing, options, filter, group);
    else
        printAll<TextListing>(drawing, options, filter, group);
}

void run(const Options& options) {
    if (options.all == !options.handle.empty())
        throw WrongUsage("name an element's handle, or --all");
    const Filter filter(options.filter);
    const DrawingFile drawing(options.drawing);
    const AcDbObjectId group = options.group.empty() ? AcDbObjectId() : drawing.findGroup(options.group);
    options.all ? runAll(drawing, options, filter, group) : runOne(drawing, options, filter, group);
}

} // namespace

void addConnectedCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command =
        program.add_subcommand("connected", "List the elements joined to an element, or to each of many");
    addNarrowFilter(*command, options->filter);
    command->add_option("--group", options->group,
                        "Search this group, by name or handle; else each group of the element");
    command->add_option("--kind", options->kind, "Only elements of this link kind (and kind 0)");
    command->add_flag(
        "--all", options->all,
        "Every member of the group that passes the filters; with HANDLE they filter what it is joined to");
    addListingForm(*command, options->form);
    runForEachDrawing(
        *command, options->drawing, [options] { run(*options); }, handleArgument(options->handle));
}

} // namespace zu::app
