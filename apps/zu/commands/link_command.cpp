#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/readable_file.h"
#include "model/settings_file.h"
#include "report/csv.h"
#include "report/text_file_warning.h"
#include "text.h"

#include <zucomn/link_info.h>
#include <zucomn/model/text_files.h>
#include <zucomn/tables.h>

#include <iostream>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    std::string file;
    std::vector<std::string> keys;
    std::string settings;
    ListingForm form;
};

void printPairs(const std::vector<std::string>& keys, const std::vector<std::string>& values) {
    Json rows = Json::array();
    for (std::size_t i = 0; i < keys.size() && i < values.size(); ++i)
        rows.push_back({keys[i], values[i]});
    printCsv({"key", "value"}, rows);
}

void get(const Options& options) {
    const SettingsFile settings(options.settings);
    warnOfUnmarkedUtf8(options.file);
    CStringArray keys;
    CStringArray values;
    for (const std::string& key : options.keys)
        keys.Add(wide(key));
    if (!ZuComn_GetLinkInfo(wide(options.file), keys, values)) {
        requireReadable(options.file);
        throw Failure(options.file + ": holds no records");
    }
    if (options.form.json)
        return printJson(Json(narrow(values)));
    if (options.form.csv)
        return printPairs(options.keys, narrow(values));
    for (const std::string& value : narrow(values))
        std::cout << value << '\n';
}

void save(const Options& options) {
    const SettingsFile settings(options.settings);
    CStringArray keys;
    CStringArray values;
    for (const std::string& pair : options.keys) {
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos)
            throw WrongUsage(pair + ": a pair is written KEY=VALUE");
        keys.Add(wide(pair.substr(0, equals)));
        values.Add(wide(pair.substr(equals + 1)));
        if (!zucomn::isLinkPair(keys[keys.GetSize() - 1], values[values.GetSize() - 1]))
            throw WrongUsage(pair +
                             ": could not be read back; a key has at most one line end, no \"|\", no \"#\" "
                             "or blank at the start of a line and no first line \"END\", a value no \"|\" "
                             "and no line end");
    }
    warnOfUnmarkedUtf8(options.file);
    // The full path, so that the backup and the temporary file lie beside the file.
    const CString file = fullPath(options.file);
    SetLastError(ERROR_SUCCESS);
    if (!ZuComn_SaveLinkInfo(file, keys, values))
        throw Failure(withLastError(options.file));
}

} // namespace

void addLinkCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* link = program.add_subcommand("link", "The link information file");
    link->require_subcommand();
    Command* reading =
        link->add_subcommand("get", "Look keys up; one value a line, empty for a key that is not there");
    reading->add_option("FILE", options->file, "The file")->required();
    reading->add_option("KEY", options->keys, "Keys")->required();
    addListingForm(*reading, options->form);
    Command* writing = link->add_subcommand("save", "Merge pairs into the file");
    writing->add_option("FILE", options->file, "The file")->required();
    writing->add_option("PAIR", options->keys, "KEY=VALUE")->required();
    for (Command* command : {reading, writing})
        command->add_option("--settings", options->settings,
                            "Master settings file, needed to save a file without \".\" in its path");
    reading->callback([options] { get(*options); });
    writing->callback([options] { save(*options); });
}

} // namespace zu::app
