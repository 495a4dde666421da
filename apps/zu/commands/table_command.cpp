#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/readable_file.h"
#include "model/standard_streams.h"
#include "report/csv.h"
#include "report/text_file_warning.h"
#include "text.h"

#include <zucomn/tables.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <utility>

namespace zu::app {

namespace {

struct Options {
    std::string file;
    std::string columns;
    std::string separator = "|";
    int skip = 0;
    ListingForm form;
};

/// With the numbers of the columns as headings: table files name none.
void printRecords(const Json& records) {
    std::size_t columns = 0;
    for (const Json& record : records)
        columns = std::max(columns, record.size());
    std::vector<std::string> headings;
    while (headings.size() < columns)
        headings.push_back(std::to_string(headings.size() + 1));
    printCsv(headings, records);
}

void run(const Options& options) {
    if (options.separator.empty())
        throw WrongUsage("--separator needs a character");
    const InputFile file(options.file);
    warnOfUnmarkedUtf8(file.path());
    const CString columns = wide(options.columns);
    CPtrArray records;
    const int result = ZuComn_ReadConfigFile(wide(file.path()), records, options.skip,
                                             options.columns.empty() ? nullptr : columns.GetString(),
                                             wide(options.separator), 0);
    Json array = Json::array();
    for (int i = 0; i < records.GetSize(); ++i)
        array.push_back(narrow(*static_cast<const CStringArray*>(static_cast<CObject*>(records[i]))));
    ZuComn_RemoveAllFree(records);
    if (result != 0) {
        requireReadable(file.path());
        throw Failure(options.file + ": holds no records");
    }
    if (options.form.json)
        return printJson(array);
    if (options.form.csv)
        return printRecords(array);
    for (const auto& record : array) {
        const char* between = "";
        for (const auto& field : record)
            std::cout << std::exchange(between, "  ") << field.get<std::string>();
        std::cout << '\n';
    }
}

} // namespace

void addTableCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand("table", "Read a table file");
    command->add_option("FILE", options->file, "The table; - is the standard input")->required();
    command->add_option("--columns", options->columns, "Columns to keep, such as 1,3");
    command->add_option("--separator", options->separator, "Character between fields")->capture_default_str();
    command->add_option("--skip", options->skip, "Lines to pass over first")
        ->capture_default_str()
        ->not_negative();
    addListingForm(*command, options->form);
    command->callback([options] { run(*options); });
}

} // namespace zu::app
