#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "manners/translation.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "model/filter.h"
#include "report/csv.h"
#include "report/json_writer.h"
#include "text.h"

#include <zucomn/model/elements.h>

#include <initializer_list>
#include <iostream>
#include <map>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    bool routesOnly = false;
    ListingForm form;
};

using zucomn::Element;

std::string pairText(const AcGePoint3d& point) {
    std::string text;
    appendNumber(text, point.x);
    text += ' ';
    appendNumber(text, point.y);
    return text;
}

template <typename Items, typename Text>
std::string joined(const Items& items, std::string_view separator, Text textOf) {
    std::string text;
    for (const auto& item : items)
        text.append(text.empty() ? std::string_view() : separator).append(textOf(item));
    return text;
}

std::string groupsText(const Element& element) {
    return joined(element.groups, " ", [](AcDbObjectId group) { return handleText(group); });
}

class JsonListing {
public:
    void add(const Element& element) {
        json_.clear();
        json_.open('{');
        json_.field("handle", handleText(element.id));
        json_.field("block", narrow(element.block));
        json_.field("code", element.code);
        json_.field("link_kind", element.linkKind);
        json_.field("layer", narrow(element.layer));
        json_.field("locked", element.isOnLocked);
        json_.key("origin");
        addNumbers({element.origin.x, element.origin.y, element.origin.z});
        json_.key("connection_points");
        json_.open('[');
        for (const AcGePoint3d& point : element.connectionPoints)
            addNumbers({point.x, point.y});
        json_.close(']');
        json_.key("groups");
        json_.open('[');
        for (const AcDbObjectId group : element.groups)
            json_.add(handleText(group));
        json_.close(']');
        json_.close('}');
        array_.print(json_.text());
    }
    void finish() { array_.finish(); }

private:
    void addNumbers(std::initializer_list<double> numbers) {
        json_.open('[');
        for (const double number : numbers)
            json_.add(number);
        json_.close(']');
    }

    JsonWriter json_;
    JsonArrayPrinter array_;
};

class CsvListing {
public:
    void add(const Element& element) {
        csv_.addField(handleText(element.id));
        csv_.add(narrow(element.block));
        csv_.add(element.code);
        csv_.add(elementCodeName(element.code));
        csv_.add(element.linkKind);
        csv_.add(narrow(element.layer));
        csv_.add(element.isOnLocked);
        csv_.add(element.origin.x);
        csv_.add(element.origin.y);
        csv_.add(element.origin.z);
        csv_.addField(joined(element.connectionPoints, "; ", pairText));
        csv_.addField(groupsText(element));
    }
    void finish() {}

private:
    CsvPrinter csv_{{"handle", "block", "code", "what", "link_kind", "layer", "locked", "x", "y", "z",
                     "connection_points", "groups"}};
};

class TextListing {
public:
    void add(const Element& element) {
        table_.addCell(handleText(element.id));
        table_.addCell(narrow(element.block));
        table_.addCell(kindName(element.code));
        table_.addCell(std::to_string(element.linkKind));
        table_.addCell(narrow(element.layer) + (element.isOnLocked ? " (locked)" : ""));
        table_.addCell(shortNumber(element.origin.x) + ", " + shortNumber(element.origin.y) + ", " +
                       shortNumber(element.origin.z));
        table_.addCell(std::to_string(element.connectionPoints.size()));
        table_.addCell(groupsText(element));
    }
    void finish() const {
        table_.print();
        std::cout << translated(std::to_string(table_.size()) + " elements") << '\n';
    }

private:
    const std::string& kindName(int code) {
        const auto [name, isNew] = kindNames_.try_emplace(code);
        if (isNew)
            name->second = translated(elementCodeName(code));
        return name->second;
    }

    TextTable table_{{"handle", "block", "what", "kind", "layer", "origin", "points", "groups"}};
    std::map<int, std::string> kindNames_;
};

template <typename Listing>
void print(const DrawingFile& drawing, const Filter& filter, bool routesOnly) {
    Listing listing;
    zucomn::readElements(filter.references(drawing), [&](const Element& element) {
        if (!routesOnly || element.code != zucomn::kNoElement)
            listing.add(element);
    });
    listing.finish();
}

void run(const Options& options) {
    const Filter filter(options.filter);
    const DrawingFile drawing(options.drawing);
    if (options.form.json)
        print<JsonListing>(drawing, filter, options.routesOnly);
    else if (options.form.csv)
        print<CsvListing>(drawing, filter, options.routesOnly);
    else
        print<TextListing>(drawing, filter, options.routesOnly);
}

} // namespace

void addElementsCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command =
        program.add_subcommand("elements", "List the block references of model space with what they are");
    addFilter(*command, options->filter);
    command->add_flag("--routes", options->routesOnly, "Only those whose block name has an element prefix");
    addListingForm(*command, options->form);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
